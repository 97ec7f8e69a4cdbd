// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/core/PoseMath.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace Vardex::PoseMath {

using Tq_1_1::Mat4d;
using Tq_1_1::Quaternion;
using Tq_1_1::Vec3d;

Mat4d<double> placePose(const Mat4d<double>& placement,
                        const Ovr::VardexLib::TrajectoryNode& node) {
    const Mat4d<double>& m = placement;
    Mat4d<double> world = Mat4d<double>::identity();
    for (std::size_t col = 0; col < 4; ++col) {
        const double* from = node.pose + 4 * col;
        for (std::size_t row = 0; row < 3; ++row) {
            const double turned = m(row, 0) * from[0] + m(row, 1) * from[1] + m(row, 2) * from[2];
            world(row, col) = col < 3 ? turned : turned + m(row, 3);
        }
    }
    return world;
}

Quaternion quaternionOf(const Mat4d<double>& pose) {
    const Mat4d<double>& m = pose;
    const double trace = m(0, 0) + (m(1, 1) + m(2, 2));
    if (trace > 0.0) {
        const double t = std::sqrt(trace + 1.0);
        const double s = 0.5 / t;
        return {0.5 * t, (m(2, 1) - m(1, 2)) * s, (m(0, 2) - m(2, 0)) * s, (m(1, 0) - m(0, 1)) * s};
    }
    // Near a half turn w is close to zero: start from the largest of x, y and z instead.
    std::size_t i = 0;
    if (m(1, 1) > m(0, 0)) {
        i = 1;
    }
    if (m(2, 2) > m(i, i)) {
        i = 2;
    }
    const std::size_t j = (i + 1) % 3;
    const std::size_t k = (j + 1) % 3;
    const double t = std::sqrt((m(i, i) - m(j, j)) - m(k, k) + 1.0);
    const double s = 0.5 / t;
    std::array<double, 3> axis{};
    axis[i] = 0.5 * t;
    axis[j] = (m(i, j) + m(j, i)) * s;
    axis[k] = (m(i, k) + m(k, i)) * s;
    return {(m(k, j) - m(j, k)) * s, axis[0], axis[1], axis[2]};
}

Vec3d<double> zAxisOf(const Quaternion& q) {
    const double u1 = q.y + q.y;
    const double u2 = (-q.x) + (-q.x);
    return {q.w * u1 + (-(u2 * q.z)), q.w * u2 + u1 * q.z, (u2 * q.x - u1 * q.y) + 1.0};
}

RotationAngles anglesOf(const Quaternion& q) {
    const double tx = q.x + q.x;
    const double ty = q.y + q.y;
    const double tz = q.z + q.z;
    const double twx = q.w * tx;
    const double twy = q.w * ty;
    const double twz = q.w * tz;
    const double txx = q.x * tx;
    const double txy = ty * q.x;
    const double txz = tz * q.x;
    const double tyy = q.y * ty;
    const double tyz = q.y * tz;
    const double tzz = q.z * tz;

    const double r00 = 1.0 - (tzz + tyy);
    const double r01 = txy - twz;
    const double r02 = txz + twy;
    const double r10 = txy + twz;
    const double r11 = 1.0 - (tzz + txx);
    const double r12 = tyz - twx;
    const double r21 = tyz + twx;
    const double r22 = 1.0 - (tyy + txx);

    double aboutZ = std::atan2(r10, r00);
    double cosAboutY = std::sqrt(r21 * r21 + r22 * r22);
    if (!(aboutZ >= 0.0)) {
        aboutZ += std::numbers::pi;
        cosAboutY = -cosAboutY;
    }
    const double aboutY = std::atan2(twy - txz, cosAboutY);
    const double sinZ = std::sin(aboutZ);
    const double cosZ = std::cos(aboutZ);
    const double aboutX = std::atan2(r02 * sinZ - r12 * cosZ, cosZ * r11 - sinZ * r01);
    return {aboutZ, aboutY, aboutX};
}

}  // namespace Vardex::PoseMath
