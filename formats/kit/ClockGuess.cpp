// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/ClockGuess.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "kit/GpsTime.h"
#include "kit/TextFields.h"

namespace Ovr::Formats {

namespace {

/// GPS time passed this in September 2011, Unix time ten years before; adjusted GPS time is GPS
/// time minus this.
constexpr double kBillion = 1e9;
/// Counted in seconds, no clock comes this far; a thousand times as far, none in milliseconds.
constexpr double kBeyondSeconds = 1e11;

constexpr double kStep = 1000.0;  // between two units

/// A time on one clock as a time on another, by GPS time.
/// @param week  out: the week that was taken for week seconds
std::optional<double> converted(double time, Clock from, Clock to, double other,
                                std::optional<std::uint32_t>& week) {
    const Clock known = from == Clock::GpsWeek ? to : from;
    const auto gps = gpsTime(from == Clock::GpsWeek ? other : time, known, {});
    if (gps && *gps >= 0.0) {
        week = static_cast<std::uint32_t>(*gps / kSecondsPerWeek);
    }
    const auto common = gpsTime(time, from, week);
    return common ? timeOnClock(*common, to, week) : std::nullopt;
}

TimeRange inUnit(const TimeRange& range, TimeUnit unit) {
    return {range.first / unitsPerSecond(unit), range.last / unitsPerSecond(unit), range.empty};
}

std::string unitOption(TimeUnit unit, const char* option) {
    return unit == TimeUnit::Seconds
               ? std::string()
               : fmt::format("{} {} ", option, kTimeUnits[static_cast<std::size_t>(unit)].name);
}

}  // namespace

void TimeRange::add(double time) {
    first = empty ? time : std::min(first, time);
    last = empty ? time : std::max(last, time);
    empty = false;
}

ClockGuess guessClock(const TimeRange& range) {
    if (range.first >= 0.0 && range.last <= kSecondsPerWeek) {
        return {{Clock::GpsWeek}};
    }
    double limit = kBeyondSeconds;
    for (const TimeUnit unit :
         {TimeUnit::Milliseconds, TimeUnit::Microseconds, TimeUnit::Nanoseconds}) {
        const bool largest = unit == TimeUnit::Nanoseconds;
        if (range.first >= limit && (largest || range.last < limit * kStep)) {
            return {{Clock::Utc, Clock::Gps}, unit};
        }
        limit *= kStep;
    }
    if (range.first >= kBillion && range.last < kBeyondSeconds) {
        return {{Clock::Utc, Clock::Gps}};
    }
    if (range.first >= -kBillion && range.last < kBillion) {
        return {{Clock::AdjustedGps}};
    }
    return {};
}

std::string describe(const ClockGuess& guess) {
    if (guess.clocks.empty()) {
        return "no known clock";
    }
    std::string text(phraseOf(guess.clocks.front()));
    if (guess.clocks.size() > 1) {
        text = "Unix or GPS time";
    }
    constexpr const char* kNames[] = {"", " in milliseconds", " in microseconds",
                                      " in nanoseconds"};
    return text + kNames[static_cast<std::size_t>(guess.unit)];
}

std::string rangeText(const TimeRange& range) {
    return fmt::format("{} .. {} s", secondsText(range.first), secondsText(range.last));
}

std::string howToMeet(const TimeRange& points, const TimeRange& trajectory) {
    const ClockGuess ofPoints = guessClock(points);
    const ClockGuess ofNodes = guessClock(trajectory);
    const TimeRange p = inUnit(points, ofPoints.unit);
    const TimeRange t = inUnit(trajectory, ofNodes.unit);
    const std::string units =
        unitOption(ofPoints.unit, "--time-unit") + unitOption(ofNodes.unit, "--trajectory-unit");
    for (const Clock from : ofPoints.clocks) {
        for (const Clock to : ofNodes.clocks) {
            std::optional<std::uint32_t> week;
            const auto moved = converted(p.first, from, to, t.first, week);
            const double offset = moved ? *moved - p.first : 0.0;
            if (moved && p.first + offset <= t.last && p.last + offset >= t.first) {
                const bool leaps = (from == Clock::Utc) != (to == Clock::Utc);
                const double gps = gpsTime(p.first, from, week).value_or(0.0);
                return fmt::format(
                    "{}--time-offset {} brings {} to {}{}", units, offset, phraseOf(from),
                    phraseOf(to),
                    leaps ? fmt::format(", {} leap seconds included", leapSecondsAt(gps)) : "");
            }
        }
    }
    if (p.first <= t.last && p.last >= t.first) {
        return units + "brings both together";
    }
    return fmt::format("{}--time-offset {} lets both begin together", units,
                       secondsText(t.first - p.first));
}

}  // namespace Ovr::Formats
