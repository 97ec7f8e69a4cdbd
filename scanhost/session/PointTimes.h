// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

#include "mobile/CorvinMobilePointSet.h"

namespace ScanHost {

// The scan times of the points of a mobile scan, as the module gives them. Seconds since scan time
// 0. Points without a time are left out of the first two.

/// Calls @p visit with the time of every point, row by row.
template <typename Visit>
void forEachPointTime(const Vardex::CorvinMobilePointSet& points, Visit&& visit) {
    const int rows = points.getNumRows();
    const int cols = points.getNumCols();
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < cols; ++col) {
            double seconds = 0.0;
            if (points.getScanPtTime(row, col, seconds)) {
                visit(seconds);
            }
        }
    }
}

/// The times of all points, row by row.
std::vector<double> pointTimes(const Vardex::CorvinMobilePointSet& points);

/// The time of one point; 0 when it has none.
/// @param index  row x columns + column
double timeAt(const Vardex::CorvinMobilePointSet& points, std::uint64_t index);

/// How many points have the same time as a neighbour.
/// Requires: the points are in the order of time.
std::uint64_t countSharedTimes(const Vardex::CorvinMobilePointSet& points);

}  // namespace ScanHost
