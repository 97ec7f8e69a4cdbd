// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "Ovr/FormatRegistry.h"
#include "support/LasBytes.h"
#include "support/LoadedScan.h"
#include "support/TempFolder.h"

namespace {

using enum Ovr::Interfaces::ErrorCode;
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

TEST_F(LasReader, RefusesWhatItCannotReadWithPlaceAndReason) {
    const auto set = [](std::size_t at, auto value) {
        return [=](std::string& bytes) { poke(bytes, at, value); };
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        std::function<void(std::string&)> damage;
        Ovr::Interfaces::ErrorCode code;
        const char* message;  // behind the file's name
    } cases[] = {
        {[](std::string& b) { b = "hello, world\n"; }, WrongFormat,
         "byte 0: found 'hell', expected 'LASF'"},
        {[](std::string& b) { b.resize(200); }, Truncated,
         "byte 200: found the end of the file, expected a header of 227 bytes"},
        {set(25, char{5}), Unsupported, "byte 24: found LAS version 1.5, expected 1.0 to 1.4"},
        {set(96, std::uint32_t{226}), InvalidValue,
         "byte 96: found a point offset of 226, inside the header, expected at least 227"},
        {set(96, std::uint32_t{284}), Truncated,
         "byte 96: found a point offset of 284, past the end, expected at most the file's 283"},
        {set(104, std::uint8_t{129}), Unsupported,
         "byte 104: found compressed points (format byte 129), expected uncompressed LAS"},
        {set(104, std::uint8_t{11}), Unsupported,
         "byte 104: found point format 11, expected 0 to 10"},
        {set(105, std::uint16_t{27}), InvalidValue,
         "byte 105: found a record length of 27, expected at least 28 for point format 1"},
        {set(107, std::uint32_t{0xFFFFFFFF}), Truncated,
         "byte 107: found a count of 4294967295 points, expected at most 2"},
        {[](std::string& b) { b.pop_back(); }, Truncated,
         "found a count of 2 points, expected at most 1, for which the file has room"},
        {set(139, 0.0), InvalidValue,
         "byte 139: found a scale of 0 for y, expected a finite number"},
        {set(131, nan), InvalidValue, "a scale of nan for x"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.message);
        std::string bytes = smallFile(2, 1).bytes();
        c.damage(bytes);
        const Ovr::ScanSource source = sourceOf(bytes);
        MobileScan scan(source);
        scan.memory.setNewSize(3, 3, true, true);
        const Ovr::ErrorPtr error = scan.loadPoints();
        ASSERT_TRUE(error);
        EXPECT_EQ(error->code(), c.code);
        EXPECT_NE(error->message().find(source.file.string() + ": "), std::string::npos);
        EXPECT_NE(error->message().find(c.message), std::string::npos) << error->message();
        EXPECT_TRUE(scan.memory.records.empty());
        std::vector<Ovr::ScanListing> listings;
        EXPECT_EQ(Ovr::listScans(source.file, listings)->message(), error->message());
    }
    std::string wide = smallFile(4, 6).bytes();
    poke(wide, 247, std::uint64_t{1} << 60U);
    const Ovr::ErrorPtr error = MobileScan(sourceOf(wide)).loadPoints();
    ASSERT_TRUE(error);
    EXPECT_NE(error->message().find("byte 247: found a count of 1152921504606846976 points"),
              std::string::npos);
}

TEST_F(LasReader, SkipsBrokenVariableLengthRecordsAndSaysSo) {
    LasBytes las = smallFile(2, 1);
    las.vlrCount = 3;
    las.vlrs = std::string(54, '\0');  // one record, the second would begin in the points
    MobileScan broken = scanOf(las);
    ASSERT_FALSE(broken.loadPoints());
    EXPECT_NE(broken.warnings().find("byte 281: variable-length record 2 of 3"), std::string::npos);
    EXPECT_EQ(broken.memory.cols, 2);
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
    EXPECT_NE(second.warnings().find("the resolution of 0.01 m in x is lost"), std::string::npos);
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
    // GPS second 1083177420.25 = 2014-05-03 18:36:44.25 UTC, 16 leap seconds behind.
    EXPECT_EQ(known.metaData().RecordingTime(), 1399142204250000);
}

TEST_F(LasReader, RefusesWhatThePointSetHasNoRoomFor) {
    MobileScan small = scanOf(smallFile(2, 3));
    small.memory.largestSize = 1;
    const Ovr::ErrorPtr error = small.loadPoints();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), OutOfMemory);
    EXPECT_NE(error->message().find("a grid of 1 x 2 points"), std::string::npos);
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
    const Ovr::ErrorPtr error = scan.loadPoints();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), Cancelled);
    EXPECT_TRUE(scan.memory.records.empty());
    EXPECT_EQ(scan.memory.begun, (std::vector<bool>{true, false, true, false}));
}

TEST_F(LasReader, TellsUnreadableFilesApart) {
    const struct {
        const char* name;
        std::filesystem::path file;
        Ovr::Interfaces::ErrorCode code;
        const char* words;
    } cases[] = {
        {"missing", folder_.path() / "none.las", FileNotFound, "no such file"},
        {"directory", folder_.path(), IsDirectory, "a directory"},
        {"empty", folder_.write("empty.las", ""), EmptyFile, "an empty file"},
        {"unknown", folder_.write("scan.xyz", "1 2 3"), WrongFormat,
         "the unknown extension '.xyz', expected .las, "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<Ovr::ScanListing> scans;
        const Ovr::ErrorPtr error = Ovr::listScans(c.file, scans);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->code(), c.code);
        EXPECT_NE(error->message().find(c.file.string()), std::string::npos);
        EXPECT_NE(error->message().find(c.words), std::string::npos) << error->message();
    }
}

}  // namespace
