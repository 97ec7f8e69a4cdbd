// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "Hx/PointSet.h"

namespace ScanHost {

/// How a stance's grid lies in the scanner's surroundings.
struct GridOrientation {
    bool upsideDown = false;  ///< row 0 looks down
    bool mirrored = false;    ///< columns count counter-clockwise
};
GridOrientation orientationOf(const Hx::PointSet& points);

/// An even row of angles: that of number 0 and the step to the next [deg].
struct AngleSteps {
    double first = 0.0;
    double step = 0.0;
};

/// The angles of a grid, in the order in which a picture shows it: columns to the right, rows
/// downwards.
struct GridAngles {
    AngleSteps columns;  ///< clockwise from the scanner's x axis, as the module's own polar values
    AngleSteps rows;     ///< above the horizon
};

/// @return empty when the grid does not go through angles in even steps
std::optional<GridAngles> anglesOf(const Hx::PointSet& points, const GridOrientation& orientation);

}  // namespace ScanHost
