// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <memory>
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

TEST(ErrorConversion, GivesEachCodeOfTheServiceItsResultAndWords) {
    using enum Ovr::Interfaces::ErrorCode;
    const Hx::SpecificErrorConverterBase converter;
    const struct {
        Ovr::Interfaces::ErrorCode code;
        int result;
        const char* words;
    } cases[] = {
        {General, 1, "failed"},
        {CannotRead, 2, "cannot be read"},
        {WrongFormat, 3, "expected kind"},
        {Truncated, 4, "ends too early"},
        {Unsupported, 6, "not supported"},
        {InvalidValue, 7, "makes no sense"},
        {OutOfMemory, 8, "out of memory"},
        {Cancelled, 9, "cancelled"},
        {TimeRange, 10, "cannot be kept"},
        {IsDirectory, 11, "directory"},
        {EmptyFile, 13, "empty"},
        {NewerVersion, 15, "newer version"},
        {NoTimes, 16, "carry no time"},
        {WriteFailed, 18, "writing failed"},
        {FileNotFound, 171, "no such file"},
        {NoTimeService, 248, "no time field"},
    };
    EXPECT_EQ(std::size(cases), static_cast<std::size_t>(WriteFailed)) << "codes count from 1";
    for (const auto& c : cases) {
        const auto error = std::make_shared<const Ovr::ServiceError>(c.code, "");
        const auto result = converter.convertError(error);
        EXPECT_EQ(result, c.result) << c.words;
        EXPECT_TRUE(Hx::IOMessages::isKnownFailure(result)) << c.words;
        EXPECT_THAT(Hx::IOMessages::describe(result), testing::HasSubstr(c.words));
    }
    EXPECT_EQ(converter.convertError(nullptr), 1);
    EXPECT_FALSE(Hx::IOMessages::isKnownFailure(0));
    EXPECT_FALSE(Hx::IOMessages::isKnownFailure(5)) << "fields that are not known";
    EXPECT_TRUE(Hx::IOMessages::isKnownFailure(-1));
}

}  // namespace
