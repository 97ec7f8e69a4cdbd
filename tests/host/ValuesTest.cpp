// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "Hx/ErrorConversion.h"
#include "Tq/UnitVec3d.h"

namespace {

using Direction = Tq_1_1::Vec3d<double>;
using Normal = Tq_1_1::UnitVec3d<double>;

double degreesBetween(const Direction& a, const Direction& b) {
    const double cosine = a.x * b.x + a.y * b.y + a.z * b.z;
    return std::acos(std::min(1.0, cosine)) * 180.0 / std::numbers::pi;
}

TEST(PackedNormal, StaysWithinADegreeAllAroundTheSphere) {
    for (int step = 0; step < 20'000; ++step) {  // a spiral from pole to pole
        const double z = 1.0 - 2.0 * step / 19'999.0;
        const double turn = step * 2.399963;
        const double radius = std::sqrt(1.0 - z * z);
        const Direction direction{radius * std::cos(turn), radius * std::sin(turn), z};
        const Normal normal = Normal::fromDirection(direction);
        ASSERT_TRUE(normal.isSet()) << step;
        ASSERT_LT(degreesBetween(normal.direction(), direction), 1.0) << step;
    }
    EXPECT_EQ(Normal::fromDirection({0.0, 0.0, -1e6}).direction().z, -1.0);
    EXPECT_FALSE(Normal::fromDirection({}).isSet());
    EXPECT_FALSE(Normal::fromDirection({0.0, std::nan(""), 1.0}).isSet());
}

TEST(ErrorConversion, KnowsEveryCodeOfTheService) {
    const Hx::SpecificErrorConverterBase converter;
    for (int code = 2; code <= static_cast<int>(Ovr::Interfaces::ErrorCode::WriteFailed); ++code) {
        const auto error = std::make_shared<const Ovr::ServiceError>(
            static_cast<Ovr::Interfaces::ErrorCode>(code), "");
        const auto result = converter.convertError(error);
        EXPECT_NE(result, Hx::IOMessages::IO_ERROR) << code;
        EXPECT_TRUE(Hx::IOMessages::isKnownFailure(result)) << code;
    }
    EXPECT_EQ(converter.convertError(nullptr), Hx::IOMessages::IO_ERROR);
}

}  // namespace
