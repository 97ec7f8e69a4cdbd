// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/PointClock.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
using VardexLib::TrajectoryNode;

namespace {

constexpr double kMicrosecondsPerSecond = 1e6;
constexpr double kLargestMicroseconds = std::numeric_limits<std::uint32_t>::max();
constexpr double kSecondsPerWeek = 604800.0;
/// GPS time passed this in September 2011, Unix time ten years before; adjusted GPS time is GPS
/// time minus this.
constexpr double kBillion = 1e9;
/// Counted in seconds, no clock comes this far.
constexpr double kBeyondSeconds = 1e11;

std::string rangeText(const TimeRange& range) {
    return fmt::format("{} .. {} s", secondsText(range.first), secondsText(range.last));
}

TimeRange rangeOf(std::span<const TrajectoryNode> trajectory) {
    TimeRange range;
    for (const TrajectoryNode& node : trajectory) {
        if (std::isfinite(node.time)) {
            range.add(node.time);
        }
    }
    return range;
}

double roundedMicroseconds(double seconds) {
    return std::round(seconds * kMicrosecondsPerSecond);
}

}  // namespace

void TimeRange::add(double time) {
    first = empty ? time : std::min(first, time);
    last = empty ? time : std::max(last, time);
    empty = false;
}

ClockKind clockKind(const TimeRange& range) {
    if (range.first >= 0.0 && range.last <= kSecondsPerWeek) {
        return ClockKind::WeekSeconds;
    }
    if (range.last >= kBeyondSeconds) {
        return ClockKind::OtherUnit;
    }
    if (range.first >= kBillion) {
        return ClockKind::UnixOrGps;
    }
    if (range.first >= -kBillion && range.last < kBillion) {
        return ClockKind::AdjustedGps;
    }
    return ClockKind::Unknown;
}

std::string describe(ClockKind kind) {
    switch (kind) {
        case ClockKind::WeekSeconds:
            return "GPS week seconds";
        case ClockKind::AdjustedGps:
            return "adjusted GPS time";
        case ClockKind::UnixOrGps:
            return "Unix or unadjusted GPS time";
        case ClockKind::OtherUnit:
            return "milliseconds, microseconds or nanoseconds";
        case ClockKind::Unknown:
            break;
    }
    return "no known clock";
}

ErrorPtr PointClock::start(const TimeRange& points, std::span<const TrajectoryNode> trajectory,
                           const std::string& file) {
    const auto refuse = [&file](std::string found, std::string expected) {
        return makeError(ErrorCode::TimeRange, {file, "", std::move(found), std::move(expected)});
    };
    const TimeRange nodes = rangeOf(trajectory);
    if (!trajectory.empty() && !std::isfinite(trajectory.front().time)) {
        return refuse("a first trajectory time that is not a number", "a finite time");
    }
    zero_ = trajectory.empty() ? points.first : trajectory.front().time;
    const double last = nodes.empty ? points.last : std::max(points.last, nodes.last);
    duration_ = points.empty ? (nodes.empty ? 0.0 : nodes.last - zero_) : last - zero_;
    if (points.empty) {
        return nullptr;
    }
    const std::string found = fmt::format("point times {}", rangeText(points));
    if (!nodes.empty && (points.last < nodes.first || points.first > nodes.last)) {
        return refuse(found, fmt::format("times that meet the trajectory's {}", rangeText(nodes)));
    }
    if (roundedMicroseconds(points.first - zero_) < 0.0) {
        return refuse(found, fmt::format("none before time zero, the first of the trajectory's {}",
                                         rangeText(nodes)));
    }
    const double span = points.last - zero_;
    if (!(roundedMicroseconds(span) <= kLargestMicroseconds)) {
        return refuse(fmt::format("points up to {} s after time zero", secondsText(span)),
                      fmt::format("at most {} s, which 32-bit microseconds hold",
                                  secondsText(kLargestMicroseconds / kMicrosecondsPerSecond)));
    }
    return nullptr;
}

std::uint64_t PointClock::microseconds(double value) const {
    return static_cast<std::uint64_t>(roundedMicroseconds(onTrajectoryClock(value) - zero_));
}

}  // namespace Ovr::Formats
