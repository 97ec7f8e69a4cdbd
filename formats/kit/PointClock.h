// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "Ovr/Errors.h"
#include "Ovr/ScanSource.h"
#include "Ovr/TrajectoryNode.h"
#include "kit/ClockGuess.h"

namespace Ovr::Formats {

/// Turns the time values of a points file into scan times: whole microseconds since time zero,
/// which is the first trajectory node where there is a trajectory, else the earliest point.
class PointClock {
  public:
    /// Where a time lies: points may be measured before the first pose and after the last.
    enum class Place { Within, Before, After };

    struct ScanTime {
        Place place = Place::Within;     ///< in the scan, to the microsecond
        std::uint64_t microseconds = 0;  ///< 0 before time zero, and at most what 32 bits hold
    };

    explicit PointClock(const ClockSettings& settings)
        : settings_(settings), perSecond_(unitsPerSecond(settings.unit)) {}

    /// Value in the file x unit [s].
    double inSeconds(double value) const {
        // Most files count seconds, and a division takes longer than the rest of the step.
        return perSecond_ == 1.0 ? value : value / perSecond_;
    }

    /// Finds the step to the trajectory's clock, chooses time zero, and checks that the times can
    /// be kept.
    /// @param values      as the file has them
    /// @param trajectory  may be empty
    /// @param file        the points file, for messages
    /// @return empty on success. TimeRange: the two clocks do not meet, or the scan lasts longer
    ///         than 32-bit microseconds hold; without a trajectory, that is from the earliest point
    ///         to the latest.
    [[nodiscard]] ErrorPtr start(const TimeRange& values,
                                 std::span<const VardexLib::TrajectoryNode> trajectory,
                                 const std::string& file);

    /// The scan time of a value, rounded to the nearest, halves away from zero. Requires: start()
    /// succeeded; the value is finite.
    ScanTime scanTimeOf(double value) const {
        const double time = inScan(value) * kMicrosecondsPerSecond;
        if (!(time > -0.5)) {
            return {Place::Before, 0};
        }
        if (time >= afterLast_) {
            return {Place::After, lateMicroseconds(time)};
        }
        // What std::round gives, without a call: this is done for each point.
        const auto whole = static_cast<std::int64_t>(time);
        const bool up = time - static_cast<double>(whole) >= 0.5;
        return {Place::Within, static_cast<std::uint64_t>(whole) + (up ? 1 : 0)};
    }
    /// How far a value lies outside the scan [s]; 0 within.
    double distanceOutside(double value) const;

    /// Time zero [s, trajectory's clock].
    double zero() const { return zero_; }
    /// The same on the clock of the points file [s].
    double zeroInFile() const { return zero_ - shift_; }
    /// From time zero to the last node, or without a trajectory to the latest point [s].
    double duration() const { return duration_; }

  private:
    static constexpr double kMicrosecondsPerSecond = 1e6;

    double inScan(double value) const { return inSeconds(value) + shift_ - zero_; }
    static std::uint64_t lateMicroseconds(double time);
    [[nodiscard]] ErrorPtr checkMeeting(const TimeRange& points, const TimeRange& nodes,
                                        const std::string& file) const;

    ClockSettings settings_;
    double perSecond_;
    double shift_ = 0.0;  ///< [s], from the points' clock to the trajectory's
    double zero_ = 0.0;   ///< [s], on the trajectory's clock
    double duration_ = 0.0;
    double afterLast_ = 0.0;  ///< the least time that is rounded to one after the last [us]
};

/// By how much the clock of a trajectory is ahead of the points' [s]: the step between the clocks
/// that are named, and the offset.
/// @param seconds  a time on the points' clock: leap seconds depend on it
double clockShift(const ClockSettings& settings, double seconds);

}  // namespace Ovr::Formats
