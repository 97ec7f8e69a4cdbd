// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "pointset/core/GridAddress.h"
#include "pointset/core/RecordingTime.h"
#include "pointset/core/ScanPointMath.h"

namespace Vardex {
namespace {

TEST(GridAddress, CellsAndIndicesLeadToEachOther) {
    EXPECT_EQ(GridAddress::flatIndex(2'000'000'000, {2'000'000'000, 1}),
              4'000'000'000'000'000'001U);
    EXPECT_EQ(GridAddress::flatIndex(4, {0, -1}), ~std::uint64_t{0});

    struct Case {
        const char* name;
        int cols;
        Hx::SelectItem item;
        GridCell cell;
    };
    for (const Case& c : {
             Case{"index alone", 4, {6, 0, 0, 0}, {1, 2}},
             Case{"row and column of its own", 4, {6, 3, 0, 0}, {3, 0}},
             Case{"first cell", 4, {0, 0, 0, 0}, {0, 0}},
             Case{"no columns", 0, {6, 0, 0, 0}, {0, 0}},
         }) {
        EXPECT_EQ(GridAddress::cellOf(c.cols, c.item), c.cell) << c.name;
    }
}

TEST(GridAddress, IndicesOfAGridThatOverflowsAreCountedAsItsRecordsAre) {
    EXPECT_EQ(GridAddress::indexCount(3, 4), 12U);
    EXPECT_EQ(GridAddress::indexCount(65536, 65537), 65536U);
    EXPECT_EQ(GridAddress::indexCount(-3, 4), 0U);
    EXPECT_EQ(GridAddress::recordCount(65536, 32768), -2'147'483'648);
}

TEST(ScanPointMath, LightnessSpansTheColourRange) {
    using Color = Tq_1_1::Color4d<unsigned char>;
    EXPECT_EQ(ScanPointMath::sharedReflection(Color{{255, 255, 255, 0xFF}}), 4080);
    EXPECT_EQ(ScanPointMath::sharedReflection(Color{{60, 10, 200, 1}}), 1680);
    EXPECT_EQ(ScanPointMath::sharedReflection(Color{{200, 60, 10, 1}}), 1680);
    EXPECT_EQ(ScanPointMath::sharedReflection(Color{{0xFF, 0xFE, 7, 0xFE}}), 0xFEFF);
}

TEST(ScanPointMath, PointsMoveAlongTheirRay) {
    struct Case {
        const char* name;
        Tq_1_1::Vec3d<float> from;
        double distance;
        Tq_1_1::Vec3d<float> to;
    };
    for (const Case& c : {
             Case{"plain", {3.0F, 0.0F, 4.0F}, 2.0, {1.2F, 0.0F, 1.6F}},
             Case{"no ray", {0.0F, 0.0F, 0.0F}, 2.0, {2.0F, 0.0F, 0.0F}},
             Case{"7.0 nm is no ray", {0.0F, 7.0e-9F, 0.0F}, 2.0, {2.0F, 0.0F, 0.0F}},
             Case{"7.2 nm is one", {0.0F, 7.2e-9F, 0.0F}, 2.0, {0.0F, 2.0F, 0.0F}},
             Case{"backwards", {0.0F, -4.0F, 0.0F}, -1.0, {0.0F, 1.0F, 0.0F}},
         }) {
        ScanPoint point;
        point.setPosition(c.from);
        point.color[0] = 77;
        const ScanPoint moved = ScanPointMath::atDistance(point, c.distance);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_FLOAT_EQ(moved.position()[i], c.to[i]) << c.name << ", component " << i;
        }
        EXPECT_EQ(moved.color[0], 77) << c.name;
        EXPECT_FLOAT_EQ(static_cast<float>(ScanPointMath::distanceOf(moved)),
                        static_cast<float>(std::abs(c.distance)))
            << c.name;
    }
}

TEST(ScanPointMath, DistanceIsComputedInSinglePrecision) {
    ScanPoint point;
    point.setPosition({4096.0F, 0.5F, 0.0F});  // 2^24 + 0.25 is 2^24 in single precision
    EXPECT_EQ(ScanPointMath::distanceOf(point), 4096.0);
}

TEST(RecordingTime, SecondsBecomeWholeMicroseconds) {
    struct Case {
        double seconds;
        std::optional<std::int64_t> microseconds;
    };
    for (const Case& c : {
             Case{1.5, 1'500'000},
             Case{-1.25, -1'250'000},
             Case{2.0000004, 2'000'000},
             Case{2.0000009, 2'000'000},
             Case{-0.0000004, -1},
             Case{9'223'372'036'854.75, 9'223'372'036'854'750'000},
             Case{9'223'372'036'854.8, std::nullopt},
             Case{-9'223'372'036'853.5, -9'223'372'036'853'500'000},
             Case{-9'223'372'036'854.5, std::nullopt},
             Case{-1e300, std::nullopt},
             Case{std::numeric_limits<double>::infinity(), std::nullopt},
             Case{std::nan(""), std::nullopt},
         }) {
        EXPECT_EQ(RecordingTime::microsecondsOf(c.seconds), c.microseconds) << c.seconds;
    }
    EXPECT_EQ(RecordingTime::secondsOf(1'500'000), 1.5);
    EXPECT_EQ(RecordingTime::secondsOf(-1'250'000), -1.25);
}

}  // namespace
}  // namespace Vardex
