// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/core/NodeConversion.h"

#include <algorithm>
#include <iterator>

namespace Vardex::NodeConversion {

std::vector<Ovr::VardexLib::TrajectoryNode> serviceNodes(
    const std::vector<std::shared_ptr<TrajectoryNode>>& nodes) {
    std::vector<Ovr::VardexLib::TrajectoryNode> copies;
    copies.reserve(nodes.size());
    for (const std::shared_ptr<TrajectoryNode>& node : nodes) {
        if (node != nullptr) {
            Ovr::VardexLib::TrajectoryNode& copy = copies.emplace_back();
            copy.time = node->time;
            std::copy(std::begin(node->pose), std::end(node->pose), copy.pose);
        }
    }
    return copies;
}

}  // namespace Vardex::NodeConversion
