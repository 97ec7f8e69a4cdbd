// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/GpsTime.h"

#include <date/date.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

namespace Ovr::Formats {

namespace {

using date::January;
using date::July;
using std::chrono::seconds;

constexpr double kAdjustment = 1e9;  // [s]
constexpr double kMicrosecondsPerSecond = 1e6;
constexpr date::sys_days kGpsEpoch = date::year(1980) / January / 6;

/// The midnights after the leap seconds since 1980, published by the IERS in its Bulletin C.
constexpr std::array<date::sys_days, 18> kAfterLeapSeconds{
    date::year(1981) / July / 1,    date::year(1982) / July / 1,    date::year(1983) / July / 1,
    date::year(1985) / July / 1,    date::year(1988) / January / 1, date::year(1990) / January / 1,
    date::year(1991) / January / 1, date::year(1992) / July / 1,    date::year(1993) / July / 1,
    date::year(1994) / July / 1,    date::year(1996) / January / 1, date::year(1997) / July / 1,
    date::year(1999) / January / 1, date::year(2006) / January / 1, date::year(2009) / January / 1,
    date::year(2012) / July / 1,    date::year(2015) / July / 1,    date::year(2017) / January / 1};

constexpr auto kEpochInUnix = static_cast<double>(seconds(kGpsEpoch.time_since_epoch()).count());

/// Leap seconds before a Unix time.
double leapSecondsBefore(double unixSeconds) {
    const auto after =
        std::find_if(kAfterLeapSeconds.begin(), kAfterLeapSeconds.end(), [&](date::sys_days day) {
            return unixSeconds < static_cast<double>(seconds(day.time_since_epoch()).count());
        });
    return static_cast<double>(after - kAfterLeapSeconds.begin());
}

}  // namespace

double leapSecondsAt(double gps) {
    double leaps = 0.0;
    for (const date::sys_days midnight : kAfterLeapSeconds) {
        // GPS time counts the leap seconds, this one included.
        const double from = static_cast<double>(seconds(midnight - kGpsEpoch).count()) + leaps + 1;
        if (gps < from) {
            break;
        }
        ++leaps;
    }
    return leaps;
}

std::optional<double> gpsTime(double time, Clock clock, std::optional<std::uint32_t> week) {
    switch (clock) {
        case Clock::Gps:
            return time;
        case Clock::AdjustedGps:
            return time + kAdjustment;
        case Clock::Utc:
            return time - kEpochInUnix + leapSecondsBefore(time);
        case Clock::GpsWeek:
            return week ? std::optional(time + *week * kSecondsPerWeek) : std::nullopt;
        case Clock::Scan:
            break;
    }
    return std::nullopt;
}

std::optional<double> timeOnClock(double gps, Clock clock, std::optional<std::uint32_t> week) {
    switch (clock) {
        case Clock::Gps:
            return gps;
        case Clock::AdjustedGps:
            return gps - kAdjustment;
        case Clock::Utc:
            return gps + kEpochInUnix - leapSecondsAt(gps);
        case Clock::GpsWeek:
            return week ? std::optional(gps - *week * kSecondsPerWeek) : std::nullopt;
        case Clock::Scan:
            break;
    }
    return std::nullopt;
}

std::int64_t unixMicroseconds(double adjusted) {
    const double unixSeconds = *timeOnClock(adjusted + kAdjustment, Clock::Utc, {});
    return static_cast<std::int64_t>(std::llround(unixSeconds * kMicrosecondsPerSecond));
}

}  // namespace Ovr::Formats
