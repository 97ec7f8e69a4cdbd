// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/PointClock.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "kit/GpsTime.h"
#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
using VardexLib::TrajectoryNode;

namespace {

constexpr double kLargestMicroseconds = std::numeric_limits<std::uint32_t>::max();

TimeRange rangeOf(std::span<const TrajectoryNode> trajectory) {
    TimeRange range;
    for (const TrajectoryNode& node : trajectory) {
        if (std::isfinite(node.time)) {
            range.add(node.time);
        }
    }
    return range;
}

[[nodiscard]] ErrorPtr refused(const std::string& file, std::string found, std::string expected) {
    return makeError(ErrorCode::TimeRange, {file, "", std::move(found), std::move(expected)});
}

}  // namespace

double clockShift(const ClockSettings& settings, double seconds) {
    if (!settings.points || !settings.trajectory) {
        return settings.offset;
    }
    const auto gps = gpsTime(seconds, *settings.points, settings.week);
    const auto there =
        gps ? timeOnClock(*gps, *settings.trajectory, settings.week) : std::optional<double>();
    return there ? *there - seconds + settings.offset : settings.offset;
}

ErrorPtr PointClock::start(const TimeRange& values, std::span<const TrajectoryNode> trajectory,
                           const std::string& file) {
    const TimeRange nodes = rangeOf(trajectory);
    if (!trajectory.empty() && !std::isfinite(trajectory.front().time)) {
        return refused(file, "a first trajectory time that is not a number", "a finite time");
    }
    TimeRange points{inSeconds(values.first), inSeconds(values.last), values.empty};
    shift_ = clockShift(settings_, points.first);
    const TimeRange moved{points.first + shift_, points.last + shift_, points.empty};
    zero_ = nodes.empty ? moved.first : trajectory.front().time;
    duration_ = (nodes.empty ? moved.last : nodes.last) - zero_;
    if (!nodes.empty && !points.empty && (moved.last < nodes.first || moved.first > nodes.last)) {
        return checkMeeting(points, nodes, file);
    }
    const double lastMicrosecond = std::round(duration_ * kMicrosecondsPerSecond);
    if (!(lastMicrosecond <= kLargestMicroseconds)) {
        return refused(file,
                       fmt::format("{} up to {} s after time zero",
                                   nodes.empty ? "points" : "poses", secondsText(duration_)),
                       fmt::format("at most {} s, which 32-bit microseconds hold; see --time-unit",
                                   secondsText(kLargestMicroseconds / kMicrosecondsPerSecond)));
    }
    afterLast_ = lastMicrosecond + 0.5;
    return nullptr;
}

/// @param points  [s], on their own clock
ErrorPtr PointClock::checkMeeting(const TimeRange& points, const TimeRange& nodes,
                                  const std::string& file) const {
    const auto shown = [](const TimeRange& range, const std::optional<Clock>& named) {
        return fmt::format("{}, which {}", rangeText(range),
                           named ? fmt::format("are {}", phraseOf(*named))
                                 : fmt::format("look like {}", describe(guessClock(range))));
    };
    return refused(
        file,
        fmt::format("point times {}{}", shown(points, settings_.points),
                    shift_ == 0.0 ? "" : fmt::format(", moved by {} s", secondsText(shift_))),
        fmt::format("times that meet the trajectory's {}; {}", shown(nodes, settings_.trajectory),
                    howToMeet(points, nodes)));
}

double PointClock::distanceOutside(double value) const {
    const double time = inScan(value);
    return std::max({0.0, -time, time - duration_});
}

std::uint64_t PointClock::lateMicroseconds(double time) {
    return static_cast<std::uint64_t>(std::min(std::round(time), kLargestMicroseconds));
}

}  // namespace Ovr::Formats
