// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Ovr/TrajectoryNode.h"
#include "Tq/Quaternion.h"
#include "Tq/Vec3d.h"

namespace ScanHost {

/// Position of a node [m].
inline Tq_1_1::Vec3d<double> positionOf(const Ovr::VardexLib::TrajectoryNode& node) {
    return {node.pose[12], node.pose[13], node.pose[14]};
}

/// Rotation of a node, from the scanner's axes to those of the points: the unit quaternion whose
/// scalar part is not negative.
Tq_1_1::Quaternion rotationOf(const Ovr::VardexLib::TrajectoryNode& node);

}  // namespace ScanHost
