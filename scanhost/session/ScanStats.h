// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "Ovr/TrajectoryNode.h"

#include "mobile/CorvinMobilePointSet.h"
#include "session/PathStats.h"
#include "session/PointSummary.h"

namespace ScanHost {

/// The path along which points were measured. May be empty; else its nodes are in the order of
/// time. Kept by reference.
struct ScanPath {
    std::span<const Ovr::VardexLib::TrajectoryNode> nodes;
    std::span<const PathStretch> stops;
    bool hasDistances = false;  ///< to the points: both have one unit of length
};

/// Of points from the scanner, in the unit of both.
struct PointDistances {
    double least = 0.0;
    double median = 0.0;
    double largest = 0.0;
};

/// What the times and places of a scan's points tell.
struct ScanStats {
    std::uint64_t timed = 0;   ///< points that count
    std::uint64_t atZero = 0;  ///< points that do not
    Range<double> times;       ///< of those that count [s, scan time]
    /// Points in one second, over the whole seconds of scan time from the first point to the last;
    /// empty when there is none.
    Range<std::uint64_t> perSecond;
    std::uint64_t outside = 0;                ///< measured after the path's end: where is not known
    std::uint64_t still = 0;                  ///< measured during a stop
    std::optional<PointDistances> distances;  ///< from the scanner at the point's time
};

/// Walks once over the points.
///
/// The scanner is on the straight line between the nodes before and after a point's time. With a
/// path the points at scan time 0 do not count: those measured before the first pose, and those
/// without a time, have it in place of their own.
///
/// Memory: 4 bytes a point for the median of the distances, which is that of the distances in
/// single precision, and 8 bytes a second of the scan.
/// @param points  with times, relative to the first node where there is a path
ScanStats scanStats(const Vardex::CorvinMobilePointSet& points, const ScanPath& path);

}  // namespace ScanHost
