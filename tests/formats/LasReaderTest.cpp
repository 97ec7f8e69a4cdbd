// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <chrono>
#include <filesystem>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "support/ExpectError.h"
#include "support/LasBytes.h"
#include "support/LoadedScan.h"
#include "support/TempFolder.h"

namespace {

using enum Ovr::Interfaces::ErrorCode;
using Support::expectError;
using Support::LasBytes;
using Support::MobileScan;
using Support::poke;

class LasReader : public testing::Test {
  protected:
    Support::TempFolder folder_;

    MobileScan scanOf(const LasBytes& las) { return MobileScan(sourceOf(las.bytes())); }
    Ovr::ScanSource sourceOf(const std::string& bytes) {
        Ovr::ScanSource source;
        source.file = folder_.write("walk.las", bytes);
        source.project = std::make_shared<Ovr::ScanProject>();
        return source;
    }
};

/// Two points 1 m apart, far out in the world.
LasBytes smallFile(unsigned minor, unsigned format) {
    LasBytes las;
    las.minor = minor;
    las.format = format;
    las.offset = {431200.0, 5412300.0, 300.0};
    las.minimum = {431200.25, 5412345.5, 312.0};
    las.maximum = {431201.25, 5412345.5, 312.0};
    las.points = {{{25, 4550, 1200}, 258, 7.5, {0x1234, 0x5678, 0x9ABC}},
                  {{125, 4550, 1200}, 65535, 8.0, {256, 255, 0}}};
    return las;
}

TEST_F(LasReader, ReadsEveryVersionAndPointFormat) {
    for (unsigned minor = 0; minor <= 4; ++minor) {
        for (unsigned format = 0; format <= 10; ++format) {
            SCOPED_TRACE("1." + std::to_string(minor) + " format " + std::to_string(format));
            LasBytes las = smallFile(minor, format);
            las.extraBytes = format % 3;
            MobileScan scan = scanOf(las);
            const Ovr::ErrorPtr error = scan.loadPoints();
            ASSERT_FALSE(error) << error->message();
            const auto& memory = scan.memory;
            ASSERT_EQ(memory.rows, 1);
            ASSERT_EQ(memory.cols, 2);
            const bool colored = LasBytes::kColorAt[format] != 0;
            EXPECT_EQ(memory.separateReflection, colored);
            const auto& point = memory.at(0, 1).point;
            EXPECT_EQ(point.position(), (Tq_1_1::Vec3d<float>(1.25F, 45.5F, 12.0F)));
            const Tq_1_1::Color4d<unsigned char> color =
                colored ? Tq_1_1::Color4d<unsigned char>{{1, 0, 0, Tq_1_1::kColorFlag}}
                        : Tq_1_1::Color4d<unsigned char>{{0xFF, 0xFF, 0, 0}};
            EXPECT_EQ(point.color, color);
            EXPECT_EQ(memory.at(0, 1).reflection, colored ? 65535 : 0);
            EXPECT_EQ(memory.at(0, 0).point.color[0], colored ? 0x12 : 2);
            EXPECT_EQ(scan.warnings(), "");
        }
    }
}

TEST_F(LasReader, RefusesACountOf64BitsThatTheFileHasNoRoomFor) {
    std::string wide = smallFile(4, 6).bytes();
    poke(wide, 247, std::uint64_t{1} << 60U);
    expectError(MobileScan(sourceOf(wide)).loadPoints(), Truncated,
                "byte 247: found a count of 1152921504606846976 points");
}

TEST_F(LasReader, ReadsTheHeaderAgainOnlyWhenTheFileHasChanged) {
    std::string bytes = smallFile(2, 1).bytes();
    MobileScan scan(sourceOf(bytes));
    ASSERT_FALSE(scan.loadPoints());
    const auto file = scan.memory.source.file;
    const auto changed = std::filesystem::last_write_time(file);
    poke(bytes, 25, char{5});
    folder_.write("walk.las", bytes);
    std::filesystem::last_write_time(file, changed);
    EXPECT_FALSE(scan.loadTimes());
    std::filesystem::last_write_time(file, changed + std::chrono::seconds(1));
    expectError(scan.loadTimes(), Unsupported, "LAS version 1.5");
}

TEST_F(LasReader, TakesColorsAsTheWholeFileHasThem) {
    LasBytes las = smallFile(2, 2);
    las.points.assign(60000, {{25, 4550, 1200}, 1, 0.0, {7, 255, 0}});
    MobileScan eight = scanOf(las);
    ASSERT_FALSE(eight.loadPoints());
    EXPECT_EQ(eight.memory.at(0, 59999).point.color,
              (Tq_1_1::Color4d<unsigned char>{{7, 255, 0, 1}}));
    // The first colour of 16 bits stands in a later block than the first point.
    las.points.back().color = {0, 0, 256};
    MobileScan sixteen = scanOf(las);
    ASSERT_FALSE(sixteen.loadPoints());
    EXPECT_EQ(sixteen.memory.at(0, 0).point.color, (Tq_1_1::Color4d<unsigned char>{{0, 0, 0, 1}}));
    EXPECT_EQ(sixteen.memory.at(0, 59999).point.color[2], 1);
    EXPECT_EQ(sixteen.statistics.reflection->count, 60000U);
}

TEST_F(LasReader, CountsCoordinatesFromTheProjectsOrigin) {
    LasBytes las = smallFile(2, 1);
    MobileScan scan = scanOf(las);
    ASSERT_FALSE(scan.loadPoints());
    EXPECT_EQ(scan.memory.source.project->origin(),
              (Tq_1_1::Vec3d<double>(431200.0, 5412300.0, 300.0)));
    // A second scan of the project keeps that origin, and pays with precision.
    LasBytes far = las;
    far.offset[0] = 4e6;
    MobileScan second = scanOf(far);
    second.memory.source.project = scan.memory.source.project;
    ASSERT_FALSE(second.loadPoints());
    EXPECT_EQ(second.memory.at(0, 0).point.x, 3568800.25F);
    EXPECT_NE(second.warnings().find("the resolution of 0.01 in x is lost"), std::string::npos);
    EXPECT_EQ(second.warnings().find("in y is lost"), std::string::npos);
}

TEST_F(LasReader, FillsMetaDataWithWhatTheFileKnows) {
    LasBytes las = smallFile(4, 6);
    las.system = "SLAM-1 \xE9";
    las.software = "Walker 2.1  ";
    las.encoding = 1;
    las.points[0].time = 83177420.5;
    las.points[1].time = 83177420.25;
    MobileScan known = scanOf(las);
    ASSERT_FALSE(known.loadPoints());
    EXPECT_EQ(known.metaData().ScannerModel(), "SLAM-1 ?");
    EXPECT_EQ(known.metaData().ProcessingSoftwareVersion(), "Walker 2.1");
    // GPS second 1083177420.25 = 2014-05-03 18:36:44.25 UTC, less 16 leap seconds.
    EXPECT_EQ(known.metaData().RecordingTime(), 1399142204250000);
    // The last leap second, 2016-12-31 23:59:60 UTC, is GPS second 1167264017. Unix time gives it
    // the number of the second after it.
    for (const auto& [adjusted, unixSeconds] : {std::pair{167264016.0, 1483228799},
                                                {167264017.0, 1483228800},
                                                {167264018.0, 1483228800}}) {
        las.points[0].time = las.points[1].time = adjusted;
        MobileScan leaping = scanOf(las);
        ASSERT_FALSE(leaping.loadPoints());
        EXPECT_EQ(leaping.metaData().RecordingTime(), std::int64_t{unixSeconds} * 1000000);
    }
}

TEST_F(LasReader, RefusesWhatThePointSetHasNoRoomFor) {
    MobileScan small = scanOf(smallFile(2, 3));
    small.memory.largestSize = 1;
    expectError(small.loadPoints(), OutOfMemory, "a grid of 1 x 2 points");
}

TEST_F(LasReader, TellsProgressAndStopsWhenCancelled) {
    LasBytes las = smallFile(2, 1);
    las.points.assign(200000, las.points[0]);
    MobileScan scan = scanOf(las);
    const auto watch = std::make_shared<Support::CountingWatch>();
    scan.memory.source.progress = watch;
    ASSERT_FALSE(scan.loadPoints());
    EXPECT_GE(watch->told, 5);
    EXPECT_LE(watch->told, 300);
    EXPECT_EQ(watch->last, 1.0);
    EXPECT_FALSE(watch->fell);

    scan.memory.source.cancel = std::make_shared<Support::CountingWatch>(2);
    expectError(scan.loadPoints(), Cancelled, "cancelled");
    EXPECT_TRUE(scan.memory.records.empty());
    EXPECT_EQ(scan.memory.begun, (std::vector<bool>{true, false, true, false}));
}

}  // namespace
