// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "ptx/PtxHeader.h"

namespace Ovr::Formats {

namespace {

/// A rotation written with 6 digits is true to half of 1e-6; 1e-4 moves a point at 100 m by 1 cm.
constexpr double kRotationSlack = 1e-4;
constexpr double kPositionSlack = 0.002;  // [m]

using Pose = std::array<double, 16>;

/// Scalar product of two axes, which are rows of the matrix.
double dot(const Pose& m, std::size_t a, std::size_t b) {
    return m[4 * a] * m[4 * b] + m[4 * a + 1] * m[4 * b + 1] + m[4 * a + 2] * m[4 * b + 2];
}

double determinant(const Pose& m) {
    return m[0] * (m[5] * m[10] - m[6] * m[9]) - m[1] * (m[4] * m[10] - m[6] * m[8]) +
           m[2] * (m[4] * m[9] - m[5] * m[8]);
}

bool isOff(double value, double expected) {
    return !(std::abs(value - expected) <= kRotationSlack);
}

void remarkOnShape(const Pose& m, const std::string& place, Remarks& remarks) {
    // A matrix written by rows would have its translation where these constants belong.
    if (m[3] != 0.0 || m[7] != 0.0 || m[11] != 0.0 || m[15] != 1.0) {
        remarks.warn(
            fmt::format("{}: the fourth column of the scan's matrix is not 0 0 0 1", place));
    }
    const std::array<double, 3> scales{std::sqrt(dot(m, 0, 0)), std::sqrt(dot(m, 1, 1)),
                                       std::sqrt(dot(m, 2, 2))};
    if (std::any_of(scales.begin(), scales.end(), [](double s) { return isOff(s, 1.0); })) {
        remarks.warn(fmt::format("{}: the scan's matrix scales x, y, z by {:.6g}, {:.6g}, {:.6g}",
                                 place, scales[0], scales[1], scales[2]));
    }
    for (const auto [a, b] : {std::array<std::size_t, 2>{0, 1}, {0, 2}, {1, 2}}) {
        const double cosine = dot(m, a, b) / (scales[a] * scales[b]);
        if (isOff(cosine, 0.0)) {
            remarks.warn(fmt::format(
                "{}: the scan's matrix shears: its axes {} and {} are not at a right angle (cosine "
                "{:.6g})",
                place, a + 1, b + 1, cosine));
        }
    }
    if (determinant(m) < 0.0) {
        remarks.warn(fmt::format("{}: the scan's matrix mirrors the points", place));
    }
}

}  // namespace

void remarkOnPtxPose(const PtxHeader& header, const std::string& place, Remarks& remarks) {
    const Pose& m = header.pose;
    const auto& said = header.placement;
    remarkOnShape(m, place, remarks);
    const double apart = std::hypot(m[12] - said[0], m[13] - said[1], m[14] - said[2]);
    if (!(apart <= kPositionSlack)) {
        remarks.warn(fmt::format(
            "{}: the scan's matrix puts the scanner {:.6g} m away from the position above it; the "
            "matrix is used",
            place, apart));
    }
    double turned = 0.0;
    for (std::size_t i = 0; i < 9; ++i) {
        turned = std::max(turned, std::abs(m[4 * (i / 3) + i % 3] - said[3 + i]));
    }
    if (!(turned <= kRotationSlack)) {
        remarks.warn(fmt::format(
            "{}: the scan's matrix has other axes than the lines above it, by up to {:.6g}; the "
            "matrix is used",
            place, turned));
    }
}

}  // namespace Ovr::Formats
