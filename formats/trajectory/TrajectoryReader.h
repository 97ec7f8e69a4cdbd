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

/// Reads a trajectory text file: one pose per line, fields apart by blanks. Two forms are told
/// apart by a line "//world_time ..." in front of the first pose:
///
/// | form | fields | content |
/// |---|---|---|
/// | TUM | 8 | time x y z qx qy qz qw |
/// | as the module exports it | 17 | time x y z qw qx qy qz, then 9 that follow from them |
///
/// Times are seconds and are kept; positions are metres in the world. Lines that begin with # or
/// // are comments. Quaternions are brought to unit length. Poses stay in the order of the file.
///
/// @param nodes    in world coordinates; replaced on success, untouched on failure; empty for a
///                 file of comments alone
/// @param remarks  receives what was noticed: quaternions off unit length, times that go back,
///                 repeat or jump (a gap above 10 x the median step), each with its first line
/// @return empty on success. Fields missing or left over, words, numbers that are not finite,
///         positions beyond 1e30 m and quaternions of length zero (less than 1e-6, or more than
///         1e6) are refused.
[[nodiscard]] ErrorPtr readTrajectoryFile(const std::filesystem::path& file,
                                          std::vector<VardexLib::TrajectoryNode>& nodes,
                                          Remarks& remarks);

/// Trajectory files as the service's registry takes them.
TrajectoryFormat trajectoryFormat();

}  // namespace Ovr::Formats
