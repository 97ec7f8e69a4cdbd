// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Another module that is linked with the built one and uses the classes that only headers offer.

#include <gtest/gtest.h>

#include <numbers>

#include "stance/ScanPolar3d.h"

namespace LoadTests {
namespace {

template <typename T>
class Consumer : public testing::Test {};
using Precisions = testing::Types<float, double>;
TYPED_TEST_SUITE(Consumer, Precisions);

TYPED_TEST(Consumer, LinksTheScannersPolarValues) {
    using T = TypeParam;
    constexpr T kHalfPi = std::numbers::pi_v<T> / 2;
    Vardex::ScanPolar3d<T> polar;
    polar.setFromCartesian({0, -2, 0});
    EXPECT_EQ(polar.x, T{2});
    EXPECT_EQ(polar.y, kHalfPi);
    EXPECT_EQ(polar.getUnified().y, 3 * kHalfPi);
    EXPECT_EQ(polar.getCartesian().y, T{-2});
    const Hx::Polar3d<T>& base = polar;
    EXPECT_EQ(base.clone()->x, T{2});
    EXPECT_NE(dynamic_cast<Vardex::ScanPolar3d<double>*>(base.toDouble().get()), nullptr);
    EXPECT_NE(dynamic_cast<Vardex::ScanPolar3d<float>*>(base.toFloat().get()), nullptr);
    EXPECT_EQ(Vardex::ScanPolar3d<T>().setFromUnified({T{2}, kHalfPi, kHalfPi}).z, T{0});
}

}  // namespace
}  // namespace LoadTests
