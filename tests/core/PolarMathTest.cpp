// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "stance/core/PolarMath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

namespace Vardex {
namespace {

template <typename T>
class PolarMathTest : public testing::Test {};

using Precisions = testing::Types<float, double>;
TYPED_TEST_SUITE(PolarMathTest, Precisions);

constexpr double kPi = 3.141592653589793;

template <typename T>
void expectSameBits(const Polar<T>& actual, const Polar<T>& expected, const char* name) {
    EXPECT_EQ(actual, expected) << name;
    EXPECT_EQ(std::signbit(actual.horizontal), std::signbit(expected.horizontal)) << name;
    EXPECT_EQ(std::signbit(actual.vertical), std::signbit(expected.vertical)) << name;
}

TYPED_TEST(PolarMathTest, AxesAndPolesAreExactToTheSignOfZero) {
    using T = TypeParam;
    struct Case {
        const char* name;
        Tq_1_1::Vec3d<T> point;
        Polar<T> scan, unified;
    };
    const T pi = static_cast<T>(kPi);
    const T half = static_cast<T>(kPi / 2);
    const T threeHalves = static_cast<T>(3 * kPi / 2);
    const T tiny = static_cast<T>(0.0000049);
    const T trace = static_cast<T>(1e-30);
    const T full = std::is_same_v<T, float> ? T{6.2831855F} : static_cast<T>(2 * kPi);
    for (const Case& c : {
             Case{"+x", {1, 0, 0}, {1, -T{0}, 0}, {1, 0, half}},
             Case{"-x", {-1, 0, 0}, {1, pi, 0}, {1, pi, half}},
             Case{"+y", {0, 1, 0}, {1, threeHalves, 0}, {1, half, half}},
             Case{"-y", {0, -1, 0}, {1, half, 0}, {1, threeHalves, half}},
             Case{"+z", {0, 0, 2}, {2, 0, half}, {2, 0, 0}},
             Case{"-z", {0, 0, -3}, {3, 0, -half}, {3, 0, pi}},
             Case{"below -0", {1, 0, -T{0}}, {1, -T{0}, -T{0}}, {1, 0, half}},
             Case{"a trace of +y", {1, trace, 0}, {1, full, 0}, {1, trace, half}},
             Case{"a trace of -y", {1, -trace, 0}, {1, trace, 0}, {1, full, half}},
             Case{"origin", {0, 0, 0}, {0, 0, 0}, {0, 0, 0}},
             Case{"too close", {0, -tiny, 0}, {tiny, 0, 0}, {tiny, 0, 0}},
         }) {
        expectSameBits(PolarMath::scanOfCartesian(c.point), c.scan, c.name);
        expectSameBits(PolarMath::unifiedOfCartesian(c.point), c.unified, c.name);
    }
}

TYPED_TEST(PolarMathTest, AnglesAgreeWithTheArcTangentsAndLeadBack) {
    using T = TypeParam;
    const double tolerance = 20 * static_cast<double>(std::numeric_limits<T>::epsilon());
    std::mt19937 random(20260417);
    std::uniform_real_distribution<double> coordinate(-30.0, 30.0);
    for (int i = 0; i < 2000; ++i) {
        const Tq_1_1::Vec3d<T> p{static_cast<T>(coordinate(random)),
                                 static_cast<T>(coordinate(random)),
                                 static_cast<T>(coordinate(random))};
        const double x = p.x, y = p.y, z = p.z;
        const double clockwise = std::atan2(-y, x);
        const double horizontal = clockwise < 0 ? clockwise + 2 * kPi : clockwise;
        const double elevation = std::atan2(z, std::hypot(x, y));
        const double r = std::hypot(x, y, z);

        const Polar<T> scan = PolarMath::scanOfCartesian(p);
        EXPECT_NEAR(scan.radius, r, tolerance * r);
        EXPECT_NEAR(scan.horizontal, horizontal, 10 * tolerance) << x << ' ' << y << ' ' << z;
        EXPECT_NEAR(scan.vertical, elevation, 10 * tolerance) << x << ' ' << y << ' ' << z;

        const Polar<T> unified = PolarMath::unifiedOfCartesian(p);
        const Polar<T> converted = PolarMath::otherConvention(scan);
        const Tq_1_1::Vec3d<T> back = PolarMath::cartesianOfScan(scan);
        const Tq_1_1::Vec3d<T> unifiedBack = PolarMath::cartesianOfUnified(unified);
        EXPECT_EQ(unified.radius, scan.radius);
        EXPECT_NEAR(unified.horizontal, converted.horizontal, 100 * tolerance);
        EXPECT_NEAR(unified.vertical, converted.vertical, 100 * tolerance);
        for (std::size_t k = 0; k < 3; ++k) {
            EXPECT_NEAR(back[k], p[k], 10 * tolerance * r) << x << ' ' << y << ' ' << z;
            EXPECT_NEAR(unifiedBack[k], p[k], 100 * tolerance * r) << x << ' ' << y << ' ' << z;
        }
    }
}

TEST(PolarMath, TheCosineIsAShiftedSine) {
    const double halfPi = kPi / 2;
    const double sineOfPi = 1.2246467991473532e-16;
    EXPECT_EQ(PolarMath::cartesianOfScan<double>({1, halfPi, 0}).x, sineOfPi);
    EXPECT_EQ(PolarMath::cartesianOfScan<double>({1, 0, -halfPi}).x, sineOfPi);
    EXPECT_EQ(PolarMath::cartesianOfUnified<double>({1, 0, -halfPi}).z, sineOfPi);

    const float halfPiF = 1.5707964F;
    const float sineOfPiF = -8.742278e-08F;
    EXPECT_EQ(PolarMath::cartesianOfScan<float>({1, halfPiF, 0}).x, sineOfPiF);
    EXPECT_EQ(PolarMath::cartesianOfScan<float>({1, 0, -halfPiF}).x, 0.0F);
    EXPECT_TRUE(std::signbit(PolarMath::cartesianOfScan<float>({1, 0, 0}).y));
    EXPECT_FALSE(std::signbit(PolarMath::cartesianOfUnified<float>({1, 0, halfPiF}).y));
}

TEST(PolarMath, SinglePrecisionScanAnglesAreComputedInDouble) {
    // cos h = 3/5 and sin v = 12/13. In single precision the last digits differ.
    const Polar<float> polar = PolarMath::scanOfCartesian<float>({3, -4, 12});
    EXPECT_EQ(polar, (Polar<float>{13.0F, 0.9272952180F, 1.1760052071F}));
}

}  // namespace
}  // namespace Vardex
