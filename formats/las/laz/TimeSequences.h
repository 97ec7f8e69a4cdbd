// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "las/laz/Arithmetic.h"
#include "las/laz/DifferenceCoder.h"
#include "las/laz/SymbolModel.h"

namespace Ovr::Formats::Laz {

/// @return @p step as a multiple of @p delta, rounded half away from zero. Requires: delta not 0.
inline std::int32_t multipleOf(std::int32_t step, std::int32_t delta) {
    const float ratio = static_cast<float>(step) / static_cast<float>(delta);
    constexpr float kLimit = 1.0e9F;
    return static_cast<std::int32_t>(std::round(std::clamp(ratio, -kLimit, kLimit)));
}

/// Times as they follow from each other in up to four interleaved sequences. A time is the bit
/// pattern of its double. Of formats 1 and 3 to 5 in version 2, and of
/// formats 6 to 10, which has no symbol for a time that stays.
///
/// | state, of each of 4 sequences | at first |
/// |---|---|
/// | its last time | the first point's in sequence 0, else 0 |
/// | delta, the usual step | 0 |
/// | extreme: odd multiples of delta in a row | 0 |
///
/// | model | symbols | meaning |
/// |---|---|---|
/// | zero, while delta is 0 | 6 (or 5) | [stays,] a step, new sequence, switch by 1 to 3 |
/// | multi, else | 516 (or 515) | 0 to 510 a step near a multiple of delta, then as above |
/// | difference, 32 bits | 9 contexts | the step, or the upper half of a new sequence's time |
///
/// The steps of the multi model:
///
/// | symbol | context | predicted from | then |
/// |---|---|---|---|
/// | 0 | 7 | 0 | extreme |
/// | 1 | 1 | delta | extreme ends |
/// | 2 to 9, 10 to 499 | 2, 3 | symbol * delta | |
/// | 500 | 4 | 500 * delta | extreme |
/// | 501 to 509 | 5 | (500 - symbol) * delta | |
/// | 510 | 6 | -10 * delta | extreme |
///
/// The fourth extreme in a row makes its step the new delta.
template <bool MayStay>
class TimeSequences {
  public:
    void begin(std::int64_t first) { sequences_[0].time = first; }

    /// @param time  what an encoder writes
    template <class Coder>
    std::int64_t code(Coder& coder, std::int64_t time) {
        if (!codeOnce(coder, time) && !codeOnce(coder, time)) {
            coder.damaged("a second switch of the time sequence", "a time");
        }
        return sequences_[current_].time;
    }

  private:
    static constexpr unsigned kStay = MayStay ? 1 : 0;
    static constexpr std::int32_t kMultiples = 500;  ///< from here on negative ones
    static constexpr std::int32_t kLowest = -10;
    static constexpr unsigned kSteps = 511;  ///< symbols of the multi model that are steps

    struct Sequence {
        std::int64_t time = 0;
        std::int32_t delta = 0;
        unsigned extreme = 0;
    };

    /// The symbols of a model in the order in which they follow its steps.
    struct Symbols {
        unsigned stay;
        unsigned fresh;
        unsigned change;  ///< plus 0 to 2
    };
    static constexpr Symbols kZero{0, kStay + 1, kStay + 2};
    static constexpr Symbols kMulti{kSteps, kSteps + kStay, kSteps + kStay + 1};

    std::int64_t stepTo(std::int64_t time, unsigned ahead) const {
        return wrappedDifference(time, sequences_[(current_ + ahead) % 4].time);
    }
    unsigned choose(std::int64_t time) const;

    /// @return false after a switch of sequences: the time is still to come
    template <class Coder>
    bool codeOnce(Coder& coder, std::int64_t time) {
        const bool isZero = sequences_[current_].delta == 0;
        const Symbols& symbols = isZero ? kZero : kMulti;
        const unsigned symbol = coder.symbol(isZero ? static_cast<SymbolModel&>(zero_) : multi_,
                                             Coder::DECODES ? 0U : choose(time));
        if (MayStay && symbol == symbols.stay) {
            return true;
        }
        if (symbol == symbols.fresh) {
            startSequence(coder, time);
        } else if (symbol >= symbols.change) {
            current_ = (current_ + symbol - symbols.change + 1) % 4;
            return false;
        } else if (isZero) {
            Sequence& now = sequences_[current_];
            now.delta = codeStep(coder, time, 0, 0);
            now.extreme = 0;
        } else {
            codeMultiple(coder, time, static_cast<std::int32_t>(symbol));
        }
        return true;
    }

    template <class Coder>
    std::int32_t codeStep(Coder& coder, std::int64_t time, unsigned context,
                          std::int32_t prediction) {
        Sequence& now = sequences_[current_];
        const auto wanted = static_cast<std::int32_t>(stepTo(time, 0));
        const std::int32_t step = steps_.code(coder, prediction, wanted, context);
        now.time = wrappedSum(now.time, std::int64_t{step});
        return step;
    }

    template <class Coder>
    void codeMultiple(Coder& coder, std::int64_t time, std::int32_t symbol) {
        Sequence& now = sequences_[current_];
        const bool isExtreme =
            symbol == 0 || symbol == kMultiples || symbol == kMultiples - kLowest;
        const std::int32_t factor = symbol <= kMultiples ? symbol : kMultiples - symbol;
        const unsigned context = symbol == 0                     ? 7
                                 : symbol == 1                   ? 1
                                 : symbol < -kLowest             ? 2
                                 : symbol < kMultiples           ? 3
                                 : symbol == kMultiples          ? 4
                                 : symbol < kMultiples - kLowest ? 5
                                                                 : 6;
        const std::int32_t step = codeStep(coder, time, context, wrappedProduct(factor, now.delta));
        if (isExtreme && ++now.extreme > 3) {
            now.delta = step;
            now.extreme = 0;
        } else if (symbol == 1) {
            now.extreme = 0;
        }
    }

    template <class Coder>
    void startSequence(Coder& coder, std::int64_t time) {
        constexpr unsigned kHalf = 32;
        constexpr unsigned kContext = 8;
        const auto high =
            steps_.code(coder, static_cast<std::int32_t>(sequences_[current_].time >> kHalf),
                        static_cast<std::int32_t>(time >> kHalf), kContext);
        const std::uint32_t low = coder.raw(kHalf, static_cast<std::uint32_t>(time));
        newest_ = (newest_ + 1) % 4;
        current_ = newest_;
        sequences_[current_] = {static_cast<std::int64_t>(
            std::uint64_t{static_cast<std::uint32_t>(high)} << kHalf | low)};
    }

    std::array<Sequence, 4> sequences_{};
    unsigned current_ = 0;
    unsigned newest_ = 0;
    SymbolsOf<5 + kStay> zero_;
    SymbolsOf<kSteps + 4 + kStay> multi_;
    DifferenceCoder<32> steps_{9};
};

/// The symbol that an encoder writes first.
template <bool MayStay>
unsigned TimeSequences<MayStay>::choose(std::int64_t time) const {
    const std::int32_t delta = sequences_[current_].delta;
    const Symbols& symbols = delta == 0 ? kZero : kMulti;
    const std::int64_t step = stepTo(time, 0);
    if (MayStay && step == 0) {
        return symbols.stay;
    }
    if (fitsIn32Bits(step)) {
        if (delta == 0) {
            return kStay;
        }
        const std::int32_t factor =
            std::clamp(multipleOf(static_cast<std::int32_t>(step), delta), kLowest, kMultiples);
        return static_cast<unsigned>(factor < 0 ? kMultiples - factor : factor);
    }
    for (unsigned ahead = 1; ahead < sequences_.size(); ++ahead) {
        if (fitsIn32Bits(stepTo(time, ahead))) {
            return symbols.change + ahead - 1;
        }
    }
    return symbols.fresh;
}

}  // namespace Ovr::Formats::Laz
