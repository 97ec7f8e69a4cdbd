// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/core/TrajectorySelection.h"

#include <algorithm>

#include "trajectory/core/PoseMath.h"

namespace Vardex::TrajectorySelection {

using Ovr::VardexLib::TrajectoryNode;
using PoseMath::positionOf;
using Tq_1_1::Vec3d;

namespace {

constexpr double kSquaredTolerance = 1e-8;  // of the shorter vector's squared length

double squaredLength(const Vec3d<double>& v) {
    return v.x * v.x + v.y * v.y + v.z * v.z;
}

bool movedOn(const Vec3d<double>& from, const Vec3d<double>& to) {
    return squaredLength(to - from) >
           kSquaredTolerance * std::min(squaredLength(to), squaredLength(from));
}

}  // namespace

std::vector<Vec3d<double>> selectPositions(std::span<const TrajectoryNode> nodes, double start,
                                           double end) {
    std::vector<Vec3d<double>> path;
    if (nodes.empty()) {
        return path;
    }
    const double from = start + nodes.front().time;
    const double to = end + nodes.front().time;
    for (const TrajectoryNode& node : nodes) {
        if (!(node.time >= from && node.time <= to)) {
            continue;
        }
        const Vec3d<double> position = positionOf(node);
        if (path.empty() || movedOn(path.back(), position)) {
            path.push_back(position);
        }
    }
    return path;
}

}  // namespace Vardex::TrajectorySelection
