// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <vector>

#include "Ovr/ScanProject.h"
#include "Ovr/TrajectoryNode.h"

#include "report/Report.h"
#include "session/ScanUnits.h"

namespace ScanHost {

/// Reads an exported trajectory back and compares it with what was exported. Throws a Failure
/// unless there are as many poses and every time, position and element of a rotation is the same to
/// 1e-9.
/// @param file     the text
/// @param project  whose origin the nodes are relative to; may be null
/// @param nodes    what was exported
/// @param units    of the positions
/// @param report   gets the largest differences
void requireSameTrajectory(const std::filesystem::path& file, Ovr::ScanProject* project,
                           const std::vector<Ovr::VardexLib::TrajectoryNode>& nodes,
                           const ScanUnits& units, Report& report);

}  // namespace ScanHost
