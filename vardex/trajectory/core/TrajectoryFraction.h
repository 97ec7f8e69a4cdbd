// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <span>

#include "Ovr/TrajectoryNode.h"
#include "Tq/Vec3d.h"

namespace Vardex {

/// A time span as fractions of the scan: 0 is the first node, 1 the scan's duration later. Not
/// clamped.
struct TimeFraction {
    double begin = 0.0;
    double end = 0.0;
};

}  // namespace Vardex

namespace Vardex::TrajectoryFraction {

/// The time span of the unbroken stretch of path around a point.
///
/// From the node nearest to the point (of equally near ones the first) the stretch grows backwards
/// and then forwards, node by node, as long as the predicate holds; the predicate sees the nearest
/// node in both walks. When it refuses the nearest node the stretch is that node alone.
/// @param nodes     in the order recorded; Requires: not empty
/// @param point     [m], in the frame of the scan's points
/// @param belongs   asked with a node's position [m]; what it throws passes to the caller
/// @param duration  of the scan [s]; 0 gives infinite fractions, and for the first node no number
TimeFraction fractionAround(std::span<const Ovr::VardexLib::TrajectoryNode> nodes,
                            const Tq_1_1::Vec3d<double>& point,
                            const std::function<bool(const Tq_1_1::Vec3d<double>&)>& belongs,
                            double duration);

}  // namespace Vardex::TrajectoryFraction
