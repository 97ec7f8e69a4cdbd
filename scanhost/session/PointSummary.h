// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>

#include "Hx/PointSet.h"
#include "Tq/Mat4d.h"
#include "Tq/Vec3d.h"

namespace ScanHost {

/// Smallest and largest of some values; empty until one was added.
template <typename T>
struct Range {
    T low = std::numeric_limits<T>::max();
    T high = std::numeric_limits<T>::lowest();

    bool isEmpty() const { return low > high; }
    void add(T value) {
        low = value < low ? value : low;
        high = value > high ? value : high;
    }
    void add(const Range& other) {
        low = other.low < low ? other.low : low;
        high = other.high > high ? other.high : high;
    }
};

/// Whether a record holds a return of the scanner: the cells of a grid without one hold the host's
/// null point. A point cloud has returns only, also one at the origin of its coordinates.
inline bool isReturn(const Hx::PointSet& points, const Hx::PointSet::ScanPt& point) {
    return !(point.x == 0.0F && point.y == 0.0F && point.z == 0.0F) || points.isPointCloud();
}

/// The point in double precision, to be transformed.
inline Tq_1_1::Vec3d<double> positionOf(const Hx::PointSet::ScanPt& point) {
    return {point.x, point.y, point.z};
}

/// What a pass over the points of a scan finds.
struct PointSummary {
    std::uint64_t cells = 0;
    std::uint64_t returns = 0;
    std::array<Range<double>, 3> bounds;  ///< [m, world], of the returns
    std::uint64_t withReflection = 0;     ///< returns
    Range<int> reflection;                ///< 0 to 65535
    double meanReflection = 0.0;
    std::uint64_t withColor = 0;         ///< returns
    std::array<Range<int>, 3> channels;  ///< red, green, blue, 0 to 255
    std::uint64_t withNormal = 0;        ///< returns
    /// Times of all points that have one, returns or not [s, scan time].
    Range<double> times;
};

/// Walks once over the points, on the cores that there are. What it finds does not depend on how
/// many these are.
/// @param toWorld  from the points' frame
PointSummary summarize(const Hx::PointSet& points, const Tq_1_1::Mat4d<double>& toWorld);

}  // namespace ScanHost
