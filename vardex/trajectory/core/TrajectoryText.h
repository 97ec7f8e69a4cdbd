// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <ostream>
#include <span>

#include "Ovr/TrajectoryNode.h"
#include "Tq/Mat4d.h"

namespace Vardex::TrajectoryText {

/// Writes a trajectory as text: a header line, then one line per node with its time, its pose in
/// world coordinates and the direction and angles derived from it. docs/trajectory-text.md
/// describes the columns. Every line is flushed, so that a reader at the other end of a pipe sees
/// whole lines.
///
/// Afterwards the stream is in fixed notation with 15 digits. All its other settings (fill, forced
/// plus sign, locale) are the caller's and apply. A stream that fails drops the rest.
/// @param nodes      in the order recorded
/// @param placement  from the frame of the scan's points into the world
void writeTrajectory(std::ostream& out, std::span<const Ovr::VardexLib::TrajectoryNode> nodes,
                     const Tq_1_1::Mat4d<double>& placement);

}  // namespace Vardex::TrajectoryText
