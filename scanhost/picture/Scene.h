// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Tq/Mat4d.h"
#include "Tq/Vec3d.h"

#include "mobile/CorvinMobilePointSet.h"
#include "report/Console.h"
#include "session/ImportedScan.h"
#include "session/ScanClock.h"

namespace ScanHost {

/// Where the scanner was at a time.
struct PathNode {
    double seconds = 0.0;            ///< scan time
    Tq_1_1::Vec3d<double> position;  ///< [world]
};

/// Where a stance stood.
struct StanceMark {
    Tq_1_1::Vec3d<double> position;  ///< [world]
    Tq_1_1::Vec3d<double> heading;   ///< the scanner's own x axis, of length 1
};

/// A scan with what pictures show of it.
struct SceneScan {
    const ImportedScan* scan = nullptr;
    std::string name;  ///< fit to be shown
    Tq_1_1::Mat4d<double> toWorld;
    std::shared_ptr<Vardex::CorvinMobilePointSet> mobile;  ///< empty for a stance
    std::optional<StanceMark> stance;                      ///< empty for a mobile scan
    std::vector<PathNode> path;  ///< nodes whose numbers are finite, in the order of the file
    bool hasTimes = false;       ///< the points' times are loaded
    ScanClock clock;             ///< of the points file, as far as it is known

    const Hx::PointSet& points() const { return *scan->pointSet; }
};

using Scene = std::vector<SceneScan>;

/// Throws a Failure unless the coordinates of all scans have the same units.
void requireOneUnit(const std::vector<ImportedScan>& scans);

/// Gathers the scans of a picture and loads their trajectories. A trajectory that was not named and
/// cannot be read is a warning; one that was named is a Failure.
/// @param scans      outlive the scene
/// @param withTimes  loads the points' times too, of the mobile scans that have some
Scene openScene(const std::vector<ImportedScan>& scans, bool withTimes, Console& console);

}  // namespace ScanHost
