// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "Ovr/TimeUnit.h"

namespace Ovr {

/// What the times of a file count from.
enum class Clock : std::uint8_t { Scan, GpsWeek, Gps, AdjustedGps, Utc };

/// What is known of a clock.
struct ClockEntry {
    Clock clock;
    std::string_view name;    ///< in options and project files
    std::string_view phrase;  ///< in messages
};

/// Every clock, in the order of the enumeration.
inline constexpr std::array<ClockEntry, 5> kClocks{{
    {Clock::Scan, "scan", "a clock of its own"},
    {Clock::GpsWeek, "gps-week", "GPS week seconds"},
    {Clock::Gps, "gps", "GPS time"},
    {Clock::AdjustedGps, "adjusted-gps", "adjusted GPS time"},
    {Clock::Utc, "utc", "Unix time"},
}};

constexpr std::string_view phraseOf(Clock clock) {
    return kClocks[static_cast<std::size_t>(clock)].phrase;
}

/// The clock of a name.
/// @return empty for any other text; case matters
constexpr std::optional<Clock> clockNamed(std::string_view name) {
    for (const ClockEntry& entry : kClocks) {
        if (entry.name == name) {
            return entry.clock;
        }
    }
    return std::nullopt;
}

/// How the clock of a points file is brought onto the trajectory's:
/// trajectory time [s] = value in the file x unit + step between the clocks + offset.
/// The step is 0 unless both clocks are named and neither is Clock::Scan.
struct ClockSettings {
    TimeUnit unit = TimeUnit::Seconds;  ///< of the times in the points file
    double offset = 0.0;                ///< [s]
    std::optional<Clock> points{};
    std::optional<TimeUnit> trajectoryUnit{};  ///< empty: what the file says, else seconds
    std::optional<Clock> trajectory{};
    std::optional<std::uint32_t> week{};  ///< full GPS week that week seconds count in

    friend bool operator==(const ClockSettings&, const ClockSettings&) = default;
};

/// Whether the settings say too little: week seconds can be brought to another clock, and the
/// other way round, only with their week.
constexpr bool lacksWeek(const ClockSettings& settings) {
    const auto hasZero = [](const std::optional<Clock>& clock) {
        return clock && *clock != Clock::Scan;
    };
    return !settings.week && hasZero(settings.points) && hasZero(settings.trajectory) &&
           settings.points != settings.trajectory &&
           (settings.points == Clock::GpsWeek || settings.trajectory == Clock::GpsWeek);
}

}  // namespace Ovr
