// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Ovr::Formats {

/// Units that coordinates come in.
enum class UnitKind : std::uint8_t {
    Unsaid,  ///< the file does not say
    Metre,
    Foot,          ///< international, 0.3048 m
    UsSurveyFoot,  ///< 1200/3937 m
    Degree,
    Other,
};

/// A unit of coordinates, as far as a file says it.
struct CrsUnit {
    UnitKind kind = UnitKind::Unsaid;
    std::string name{};   ///< "US survey foot"; of other units what the file calls them
    double factor = 0.0;  ///< metres, or radians of an angle, in one unit; 0 when not known
    bool isAngle = false;

    friend bool operator==(const CrsUnit&, const CrsUnit&) = default;
};

/// One of the units with a name of its own. Requires: neither Unsaid nor Other.
CrsUnit knownUnit(UnitKind kind);

/// The unit that a file names and gives a factor for. The name decides where the two differ: a
/// factor of 1 is what writers put in for want of a better one.
/// @param factor  0 when the file gives none
CrsUnit unitOf(std::string_view name, double factor, bool isAngle);
/// Whether name and factor of a unit in a file say the same.
bool agrees(const CrsUnit& unit, double factor);

/// The unit with a code of the EPSG register; Other, with the code as its name, for those that are
/// not known here.
CrsUnit epsgUnit(unsigned code);

}  // namespace Ovr::Formats
