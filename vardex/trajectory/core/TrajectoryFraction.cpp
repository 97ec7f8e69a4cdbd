// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/core/TrajectoryFraction.h"

#include <cstddef>

#include "trajectory/core/PoseMath.h"

namespace Vardex::TrajectoryFraction {

using Ovr::VardexLib::TrajectoryNode;
using PoseMath::positionOf;
using Tq_1_1::Vec3d;

namespace {

double squaredDistance(const TrajectoryNode& node, const Vec3d<double>& point) {
    const double dx = node.pose[12] - point.x;
    const double dy = node.pose[13] - point.y;
    const double dz = node.pose[14] - point.z;
    return (dx * dx + dy * dy) + dz * dz;
}

/// The first of the nearest nodes. The search starts from node 0 and not from infinity: a first
/// distance that is not a number stays the answer, because nothing is less.
std::size_t nearestNode(std::span<const TrajectoryNode> nodes, const Vec3d<double>& point) {
    std::size_t nearest = 0;
    double smallest = squaredDistance(nodes[0], point);
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        const double distance = squaredDistance(nodes[i], point);
        if (distance < smallest) {
            smallest = distance;
            nearest = i;
        }
    }
    return nearest;
}

}  // namespace

TimeFraction fractionAround(std::span<const TrajectoryNode> nodes, const Vec3d<double>& point,
                            const std::function<bool(const Vec3d<double>&)>& belongs,
                            double duration) {
    const std::size_t nearest = nearestNode(nodes, point);
    const double start = nodes.front().time;
    double begin = nodes[nearest].time;
    for (std::size_t k = nearest + 1; k-- > 0 && belongs(positionOf(nodes[k]));) {
        begin = nodes[k].time;
    }
    double end = nodes[nearest].time;
    for (std::size_t k = nearest; k < nodes.size() && belongs(positionOf(nodes[k])); ++k) {
        end = nodes[k].time;
    }
    const double perSecond = 1.0 / duration;
    return {(begin - start) * perSecond, (end - start) * perSecond};
}

}  // namespace Vardex::TrajectoryFraction
