// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <vector>

#include "Ovr/TrajectoryNode.h"
#include "Tq/Vec3d.h"

namespace Vardex::TrajectorySelection {

/// The stretch of path walked within a time span.
///
/// Nodes are chosen by their time alone, so they may stand in any order; the first one, wherever
/// its time lies, is scan time 0. Where the scanner stood still only its first position is kept: a
/// position is left out when its distance to the one kept last is at most 1e-4 times the smaller of
/// the two vectors' lengths.
/// @param nodes  in the order recorded
/// @param start  scan time [s], included
/// @param end    scan time [s], included
/// @return positions [m] in the frame of the scan's points, in node order; empty when no node's
///         time falls into the span. A node whose time or position is not a number is left out,
///         unless its position is the first: that one is kept, and all others are left out.
std::vector<Tq_1_1::Vec3d<double>> selectPositions(
    std::span<const Ovr::VardexLib::TrajectoryNode> nodes, double start, double end);

}  // namespace Vardex::TrajectorySelection
