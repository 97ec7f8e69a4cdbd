// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

#include "Ovr/TrajectoryNode.h"

#include "mobile/CorvinMobilePointSet.h"

namespace Vardex::Bench {

constexpr double kNodesPerSecond = 100.0;

/// A walk in circles of growing radius.
inline std::vector<Ovr::VardexLib::TrajectoryNode> makeWalk(std::size_t count) {
    std::vector<Ovr::VardexLib::TrajectoryNode> nodes(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double seconds = static_cast<double>(i) / kNodesPerSecond;
        const double c = std::cos(seconds);
        const double s = std::sin(seconds);
        const double pose[16] = {c, s, 0, 0, -s,          c,           0,   0,
                                 0, 0, 1, 0, seconds * c, seconds * s, 1.6, 1};
        nodes[i].time = 1000.0 + seconds;
        std::copy(pose, pose + 16, nodes[i].pose);
    }
    return nodes;
}

inline double durationOf(const std::vector<Ovr::VardexLib::TrajectoryNode>& nodes) {
    return nodes.back().time - nodes.front().time;
}

/// A mobile scan with this trajectory.
inline std::shared_ptr<CorvinMobilePointSet> makeScan(
    const std::vector<Ovr::VardexLib::TrajectoryNode>& nodes) {
    auto set = std::make_shared<CorvinMobilePointSet>(L"walk");
    set->getMobileScanData().setTrajectoryNodes(nodes);
    set->setMaxScanPointTime(durationOf(nodes));
    return set;
}

}  // namespace Vardex::Bench
