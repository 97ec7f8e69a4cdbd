// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>

#include "Ovr/Clock.h"

namespace Ovr::Formats {

inline constexpr double kSecondsPerWeek = 604800.0;

/// GPS time of a time on another clock. GPS time is ahead of UTC by the leap seconds inserted since
/// 1980; adjusted GPS time is GPS time minus 1e9 s; week seconds count from the midnight that
/// begins a Sunday.
/// @param time  [s]
/// @param week  number of the GPS week since 1980-01-06, for Clock::GpsWeek
/// @return [s] since 1980-01-06; empty for Clock::Scan, and for week seconds without a week
std::optional<double> gpsTime(double time, Clock clock, std::optional<std::uint32_t> week);

/// The way back. @param gps  [s] since 1980-01-06
/// @return likewise
std::optional<double> timeOnClock(double gps, Clock clock, std::optional<std::uint32_t> week);

/// Leap seconds from 1980 to a GPS time: by so much UTC is less than GPS time.
/// @param gps  [s] since 1980-01-06
double leapSecondsAt(double gps);

/// Unix time of an adjusted GPS time.
/// @param adjusted  [s]
/// @return [us] since 1970-01-01 UTC
std::int64_t unixMicroseconds(double adjusted);

}  // namespace Ovr::Formats
