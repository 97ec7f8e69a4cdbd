// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

#include "Ovr/ScanSource.h"
#include "las/CrsDescription.h"
#include "las/CrsUnit.h"

#include "report/Report.h"

namespace ScanHost {

/// The units of a scan's coordinates. Nothing is ever converted: numbers are printed and taken as
/// they are in the file, next to the unit that they have.
struct ScanUnits {
    enum class Source {
        Assumed,  ///< the file says nothing, and metres are what scanners write
        File,
        User,  ///< the user says it, of points and trajectory alike
    };

    Source source = Source::Assumed;
    Ovr::Formats::CrsUnit horizontal = Ovr::Formats::knownUnit(Ovr::Formats::UnitKind::Metre);
    Ovr::Formats::CrsUnit vertical = horizontal;

    /// The short name of an axis' unit.
    std::string label(std::size_t axis) const;
    /// "[m]", or "[deg, z in m]" where heights have another unit.
    std::string brackets() const;
    /// " m" after a distance, or after a difference along the first axis.
    std::string suffix() const;
    /// The names of the units in words, for messages.
    std::string words() const;

    /// Whether there are distances between points: all axes have one unit of length.
    bool hasDistances() const { return horizontal == vertical && !horizontal.isAngle; }
    /// Whether the points share the unit of a trajectory: metres, unless the user says more.
    bool fitTrajectory() const;

    /// Adds the units for programs.
    void addTo(Report& report) const;

    friend bool operator==(const ScanUnits&, const ScanUnits&) = default;
};

/// "m", "ft", "us-ft", "deg", as options take it; the name of any other unit.
std::string shortUnitName(const Ovr::Formats::CrsUnit& unit);

/// The coordinate system that a points file names; empty where it names none. What is wrong with it
/// is said when the points are read.
Ovr::Formats::CrsDescription coordinateSystemOf(const std::filesystem::path& file);

/// The units that the user gives, else those of the file's coordinate system.
/// @param chosen  of all axes; with degrees the heights keep what the file says
ScanUnits unitsOf(const Ovr::ScanSource& source, std::optional<Ovr::Formats::UnitKind> chosen);

/// "[m]" for columns of coordinates.
std::string axisLabel(const ScanUnits& units, std::size_t axis);

/// Adds a distance, or none and why when the units know none.
void addDistance(const ScanUnits& units, Report& report, const std::string& key,
                 const std::string& label, double distance, int digits);

}  // namespace ScanHost
