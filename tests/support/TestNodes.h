// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "Ovr/TrajectoryNode.h"
#include "Tq/Vec3d.h"

namespace Vardex::Testing {

using Nodes = std::vector<Ovr::VardexLib::TrajectoryNode>;

/// A node that is not turned.
inline Ovr::VardexLib::TrajectoryNode nodeAt(double time, const Tq_1_1::Vec3d<double>& position) {
    Ovr::VardexLib::TrajectoryNode node;
    node.time = time;
    node.pose[12] = position.x;
    node.pose[13] = position.y;
    node.pose[14] = position.z;
    return node;
}

}  // namespace Vardex::Testing
