// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/core/PoseMath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace Vardex {
namespace {

using Tq_1_1::Quaternion;
using Matrix = Tq_1_1::Mat4d<double>;
constexpr double kPi = std::numbers::pi;

/// A rotation about axis 0, 1 or 2.
Matrix turn(std::size_t axis, double angle) {
    const std::size_t j = (axis + 1) % 3;
    const std::size_t k = (axis + 2) % 3;
    Matrix m = Matrix::identity();
    m(j, j) = m(k, k) = std::cos(angle);
    m(k, j) = std::sin(angle);
    m(j, k) = -std::sin(angle);
    return m;
}

// Steps of 30 degrees meet every branch of the quaternion: half turns about and between the axes,
// and third turns, whose trace is 0.
TEST(PoseMath, AnglesAndAxisBelongToTheRotation) {
    for (int i = 0; i < 13 * 7 * 13; ++i) {
        const int steps[] = {i / 91 - 6, i / 13 % 7 - 3, i % 13 - 6};
        SCOPED_TRACE(testing::PrintToString(steps));
        const Matrix pose =
            turn(2, steps[0] * kPi / 6) * turn(1, steps[1] * kPi / 6) * turn(0, steps[2] * kPi / 6);
        const Quaternion q = PoseMath::quaternionOf(pose);
        EXPECT_NEAR(q.w * q.w + q.x * q.x + q.y * q.y + q.z * q.z, 1.0, 1e-12);
        const RotationAngles a = PoseMath::anglesOf(q);
        EXPECT_TRUE(a.aboutZ >= 0.0 && a.aboutZ <= kPi);
        const Matrix again = turn(2, a.aboutZ) * turn(1, a.aboutY) * turn(0, a.aboutX);
        for (std::size_t k = 0; k < 16; ++k) {
            EXPECT_NEAR(again.values[k], pose.values[k], 1e-12) << "value " << k;
        }
        for (std::size_t k = 0; k < 3; ++k) {
            EXPECT_NEAR(PoseMath::zAxisOf(q)[k], pose(k, 2), 1e-12);
        }
    }
}

// Diagonals that are no rotations tell by their result which component the quaternion started from.
TEST(PoseMath, QuaternionStartsFromTheLargestComponent) {
    struct Case {
        double x, y, z;
        Quaternion q;
    };
    for (const Case& c : {Case{1.5, -0.75, -0.75, {0, 1, 0, 0}},  // trace exactly 0
                          Case{0, 0, -3, {0, 1, 0, 0}}, Case{-3, 0, 0, {0, 0, 1, 0}},
                          Case{-2, 0.5, -0.5, {0, 0, 1, 0}}, Case{-2, -0.5, 0.5, {0, 0, 0, 1}}}) {
        const Matrix diagonal{{c.x, 0, 0, 0, 0, c.y, 0, 0, 0, 0, c.z, 0, 0, 0, 0, 1}};
        EXPECT_EQ(PoseMath::quaternionOf(diagonal), c.q) << c.x << ' ' << c.y << ' ' << c.z;
    }
}

}  // namespace
}  // namespace Vardex
