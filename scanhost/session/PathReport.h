// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>

#include "Ovr/TrajectoryNode.h"
#include "Tq/Mat4d.h"

#include "report/Report.h"
#include "session/PathStats.h"
#include "session/ScanUnits.h"

namespace ScanHost {

/// The nodes of a path, and what is needed to say where and when something is on it.
struct PathPlaces {
    std::span<const Ovr::VardexLib::TrajectoryNode> nodes;
    ScanUnits units;                ///< of the positions
    Tq_1_1::Mat4d<double> toWorld;  ///< from the nodes' frame
};

/// Adds a section with what the nodes of a path tell. Times are scan times.
void describePath(const PathStats& stats, const PathPlaces& path, Report& report);

}  // namespace ScanHost
