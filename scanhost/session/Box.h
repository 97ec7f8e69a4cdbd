// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <optional>
#include <vector>

#include "Ovr/TrajectoryNode.h"
#include "Tq/Vec3d.h"

#include "report/Console.h"
#include "session/ImportedScan.h"
#include "session/PointSummary.h"

namespace ScanHost {

/// Bounds along the axes; empty until a point was added.
using Box = std::array<Range<double>, 3>;

/// Shortest distance between two boxes; 0 when they touch or one is empty.
double gapBetween(const Box& a, const Box& b);

/// The bounds that the header of a scan's file names [world]; empty when there are none. Throws a
/// Failure when the header cannot be read.
Box headerBounds(const ImportedScan& scan);

/// Warns of a trajectory further from the points than any hand-held scanner sees.
/// @param points  bounds of the points [world, in the scan's units]
/// @param nodes   in the frame of the points
void remarkOnFarPath(const ImportedScan& scan, const Box& points,
                     const std::vector<Ovr::VardexLib::TrajectoryNode>& nodes, Console& console);

}  // namespace ScanHost
