// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "picture/Scene.h"

namespace ScanHost {

/// What a path is like at one of its nodes.
struct PathState {
    double seconds = 0.0;   ///< scan time
    double height = 0.0;    ///< [world]
    double distance = 0.0;  ///< along the path since its first node
    double speed = 0.0;     ///< per second, see pathStates
};

/// Seconds over which speeds are taken, for a path that lasts some time.
double speedWindow(double duration);

/// The states at all nodes whose times do not go back. The speed is the way along the straight line
/// between the nodes that are half a window earlier and later, over their difference in time: that
/// keeps the noise of single poses out.
/// @param window  [s]
std::vector<PathState> pathStates(const std::vector<PathNode>& path, double window);

}  // namespace ScanHost
