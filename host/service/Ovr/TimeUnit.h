// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Ovr {

/// Unit of the time values in a points file.
enum class TimeUnit : std::uint8_t { Seconds, Milliseconds, Microseconds, Nanoseconds };

/// What is known of a unit of time.
struct TimeUnitEntry {
    TimeUnit unit;
    std::string_view name;  ///< in options and project files
    double perSecond;       ///< how many of them make a second
};

/// Every unit, in the order of the enumeration.
inline constexpr std::array<TimeUnitEntry, 4> kTimeUnits{{
    {TimeUnit::Seconds, "s", 1.0},
    {TimeUnit::Milliseconds, "ms", 1e3},
    {TimeUnit::Microseconds, "us", 1e6},
    {TimeUnit::Nanoseconds, "ns", 1e9},
}};

/// How many of a unit make a second.
constexpr double unitsPerSecond(TimeUnit unit) {
    return kTimeUnits[static_cast<std::size_t>(unit)].perSecond;
}

/// The unit of a name.
/// @return empty for any other text; case matters
constexpr std::optional<TimeUnit> timeUnitNamed(std::string_view name) {
    for (const TimeUnitEntry& entry : kTimeUnits) {
        if (entry.name == name) {
            return entry.unit;
        }
    }
    return std::nullopt;
}

}  // namespace Ovr
