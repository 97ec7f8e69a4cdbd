// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "Ovr/Errors.h"
#include "Ovr/ScanSource.h"
#include "Ovr/TrajectoryNode.h"

namespace Ovr::Formats {

/// The smallest and the largest of a number of times. Empty until something was added.
struct TimeRange {
    double first = 0.0;
    double last = 0.0;
    bool empty = true;

    /// Requires: @p time is not NaN.
    void add(double time);
};

/// What times may count. Adjusted GPS time is GPS time minus 1e9 s.
enum class ClockKind { WeekSeconds, AdjustedGps, UnixOrGps, OtherUnit, Unknown };

/// The clock that times look like by their size.
/// @param range  [s], if the unit that the user named is right
ClockKind clockKind(const TimeRange& range);

/// A phrase for messages.
std::string describe(ClockKind kind);

/// Turns the time values of a points file into scan times: whole microseconds since time zero,
/// which is the first trajectory node where there is a trajectory, else the earliest point.
class PointClock {
  public:
    explicit PointClock(const ClockSettings& settings)
        : perSecond_(unitsPerSecond(settings.unit)), offset_(settings.offset) {}

    /// Value in the file x unit [s].
    double inSeconds(double value) const {
        // Most files count seconds, and a division takes longer than the rest of the step.
        return perSecond_ == 1.0 ? value : value / perSecond_;
    }
    /// The same on the trajectory's clock [s].
    double onTrajectoryClock(double value) const { return inSeconds(value) + offset_; }

    /// Chooses time zero and checks that every time of the range can be kept.
    /// @param points      [s], on the trajectory's clock
    /// @param trajectory  may be empty
    /// @param file        the points file, for messages
    /// @return empty on success. TimeRange: the two clocks do not meet, points lie before time
    ///         zero, or times are too late for 32-bit microseconds.
    [[nodiscard]] ErrorPtr start(const TimeRange& points,
                                 std::span<const VardexLib::TrajectoryNode> trajectory,
                                 const std::string& file);

    /// Scan time of a value [us], rounded to the nearest, halves away from zero.
    /// Requires: start() succeeded for a range that holds the value.
    std::uint64_t microseconds(double value) const;

    /// Time zero [s, trajectory's clock].
    double zero() const { return zero_; }
    /// From time zero to the last point or node [s].
    double duration() const { return duration_; }

  private:
    double perSecond_;
    double offset_;      ///< [s]
    double zero_ = 0.0;  ///< [s], on the trajectory's clock
    double duration_ = 0.0;
};

}  // namespace Ovr::Formats
