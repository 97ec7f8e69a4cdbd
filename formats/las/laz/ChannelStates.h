// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <utility>

namespace Ovr::Formats::Laz {

/// What the other items of a record are told of its channel.
struct ChannelStep {
    unsigned channel = 0;  ///< the point's
    bool isNew = true;     ///< it is not the one of the point before
};

/// One item's state for each of four scanner channels, made when the channel first comes up.
///
/// In version 4 a point belongs to its own channel. In version 3 the number of a channel is passed
/// on only with the point that changes to it, and every other point counts as one of channel 0; and
/// after a return to a channel that was there before, the point is predicted from the last one of
/// the channel before it. Both are so in the files in use and have to be kept.
template <class Models, class Value>
class ChannelStates {
  public:
    explicit ChannelStates(bool isVersion3) : isVersion3_(isVersion3) {}

    struct Use {
        Models& models;
        Value& last;  ///< to predict from, and to replace with the new value
    };

    /// @param models  those of a channel at first
    void begin(unsigned channel, Models models, Value first) {
        current_ = channel;
        states_[current_] = std::make_unique<State>(State{std::move(models), std::move(first)});
    }

    template <class MakeModels>
    Use next(const ChannelStep& step, MakeModels makeModels) {
        const unsigned channel = isVersion3_ && !step.isNew ? 0 : step.channel;
        State* from = states_[current_].get();
        if (channel != current_) {
            current_ = channel;
            auto& state = states_[current_];
            if (!state) {
                state = std::make_unique<State>(State{makeModels(), from->last});
                from = state.get();
            } else if (!isVersion3_) {
                from = state.get();
            }
        }
        return {states_[current_]->models, from->last};
    }

  private:
    struct State {
        Models models;
        Value last;
    };
    bool isVersion3_;
    unsigned current_ = 0;
    std::array<std::unique_ptr<State>, 4> states_;
};

}  // namespace Ovr::Formats::Laz
