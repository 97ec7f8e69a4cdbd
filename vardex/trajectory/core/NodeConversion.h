// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <vector>

#include "Ovr/TrajectoryNode.h"

#include "trajectory/TrajectoryNode.h"

/// Trajectory nodes of the module's callers as nodes of the scan-data service.
namespace Vardex::NodeConversion {

/// The nodes as the scan-data service keeps them, in the same order and value for value.
/// @param nodes  null pointers are skipped
/// @throw std::length_error  more nodes than a vector can hold
std::vector<Ovr::VardexLib::TrajectoryNode> serviceNodes(
    const std::vector<std::shared_ptr<TrajectoryNode>>& nodes);

}  // namespace Vardex::NodeConversion
