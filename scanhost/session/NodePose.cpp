// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/NodePose.h"

#include <algorithm>
#include <cmath>

namespace ScanHost {

Tq_1_1::Quaternion rotationOf(const Ovr::VardexLib::TrajectoryNode& node) {
    const auto m = [&node](int row, int col) { return node.pose[4 * col + row]; };
    // Each component from the sum of the diagonal that does not cancel, its sign from the others.
    const auto half = [](double square) { return std::sqrt(std::max(0.0, square)) / 2.0; };
    const double w = half(1.0 + m(0, 0) + m(1, 1) + m(2, 2));
    const double x = half(1.0 + m(0, 0) - m(1, 1) - m(2, 2));
    const double y = half(1.0 - m(0, 0) + m(1, 1) - m(2, 2));
    const double z = half(1.0 - m(0, 0) - m(1, 1) + m(2, 2));
    const double largest = std::max({w, x, y, z});
    if (largest == w) {
        return {w, (m(2, 1) - m(1, 2)) / (4 * w), (m(0, 2) - m(2, 0)) / (4 * w),
                (m(1, 0) - m(0, 1)) / (4 * w)};
    }
    const double sign = [&] {
        const double scalar = largest == x   ? m(2, 1) - m(1, 2)
                              : largest == y ? m(0, 2) - m(2, 0)
                                             : m(1, 0) - m(0, 1);
        return scalar < 0.0 ? -1.0 : 1.0;
    }();
    if (largest == x) {
        return {sign * (m(2, 1) - m(1, 2)) / (4 * x), sign * x,
                sign * (m(0, 1) + m(1, 0)) / (4 * x), sign * (m(0, 2) + m(2, 0)) / (4 * x)};
    }
    if (largest == y) {
        return {sign * (m(0, 2) - m(2, 0)) / (4 * y), sign * (m(0, 1) + m(1, 0)) / (4 * y),
                sign * y, sign * (m(1, 2) + m(2, 1)) / (4 * y)};
    }
    return {sign * (m(1, 0) - m(0, 1)) / (4 * z), sign * (m(0, 2) + m(2, 0)) / (4 * z),
            sign * (m(1, 2) + m(2, 1)) / (4 * z), sign * z};
}

}  // namespace ScanHost
