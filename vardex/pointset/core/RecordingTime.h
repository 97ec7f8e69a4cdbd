// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>

/// The time of a recording: seconds at the host, whole microseconds in the scan's metadata, both
/// counted from the same origin.
namespace Vardex::RecordingTime {

/// The microseconds of a number of seconds. The fraction of the second is cut, not rounded, and
/// counts upwards from the full second below: -1.25 s is -1 250 000 us.
/// @return empty when @p seconds is not a number or 64 bits cannot hold the result
std::optional<std::int64_t> microsecondsOf(double seconds);

/// The seconds of a number of microseconds, computed in ticks of 100 ns.
/// A number whose ticks leave 64 bits (beyond 29 000 years) wraps.
double secondsOf(std::int64_t microseconds);

}  // namespace Vardex::RecordingTime
