// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <vector>

#include "Ovr/Errors.h"
#include "Ovr/FormatRegistry.h"
#include "Ovr/Remarks.h"
#include "Ovr/TrajectoryNode.h"

namespace Ovr::Formats {

/// Reads a trajectory text file: one pose per line, its columns as TrajectoryColumns finds them.
/// Positions are metres in the world. Lines that begin with # or // are comments. Quaternions are
/// brought to unit length.
///
/// @param reading  unit of the times, and whether the poses are put into the order of their times;
///                 else they stay in the order of the file
/// @param nodes    in world coordinates; replaced on success, untouched on failure; empty for a
///                 file of comments alone
/// @param remarks  receives what was noticed: quaternions off unit length, times that go back,
///                 repeat or jump (a gap above 10 x the median step), each with its first line;
///                 times that look like another unit
/// @return empty on success. Fields missing or left over, words, numbers that are not finite,
///         positions beyond 1e30 m and quaternions of length zero (less than 1e-6, or more than
///         1e6) are refused.
[[nodiscard]] ErrorPtr readTrajectoryFile(const std::filesystem::path& file,
                                          const TrajectoryReading& reading,
                                          std::vector<VardexLib::TrajectoryNode>& nodes,
                                          Remarks& remarks);

/// Whether a file begins as a trajectory: its first line that is no comment is a pose, or names the
/// columns of one that follows.
bool beginsAsTrajectory(const std::filesystem::path& file);

/// Trajectory files as the service's registry takes them.
TrajectoryFormat trajectoryFormat();

}  // namespace Ovr::Formats
