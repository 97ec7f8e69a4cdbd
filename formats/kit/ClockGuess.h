// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Ovr/Clock.h"

namespace Ovr::Formats {

/// The smallest and the largest of a number of times. Empty until something was added.
struct TimeRange {
    double first = 0.0;
    double last = 0.0;
    bool empty = true;

    /// Requires: @p time is not NaN.
    void add(double time);
};

/// What times look like by their size. GPS time and Unix time cannot be told apart.
struct ClockGuess {
    std::vector<Clock> clocks;  ///< those that they may be; empty: no known clock
    TimeUnit unit = TimeUnit::Seconds;

    bool isOnly(Clock clock) const { return clocks.size() == 1 && clocks.front() == clock; }
};

/// @param range  [s], if the unit that the user named is right
ClockGuess guessClock(const TimeRange& range);

/// A phrase for messages, for example "Unix or GPS time in nanoseconds".
std::string describe(const ClockGuess& guess);

/// "12.500000 .. 30.000000 s"
std::string rangeText(const TimeRange& range);

/// What the user may say to bring points onto the clock of a trajectory, for messages: the options,
/// ready to paste, and why. By what both look like, else so that both begin together.
/// @param points      [s], on no clock but their own
/// @param trajectory  [s]
std::string howToMeet(const TimeRange& points, const TimeRange& trajectory);

}  // namespace Ovr::Formats
