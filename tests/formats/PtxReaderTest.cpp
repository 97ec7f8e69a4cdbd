// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <string>
#include <vector>

#include "Ovr/FormatRegistry.h"
#include "support/ExpectError.h"
#include "support/LoadedScan.h"
#include "support/TempFolder.h"

namespace {

using Ovr::ScanListing;
using enum Ovr::Interfaces::ErrorCode;
using Support::StanceScan;

/// Header of a scan whose pose counts from 0.25.
std::string header(const std::string& columns, const std::string& rows) {
    return columns + "\n" + rows +
           "\n431203 5412347.5 314.15\n1 0 0\n0 1 0\n0 0 1\n"
           "0.25 1.25 2.25 0\n4.25 5.25 6.25 0\n8.25 9.25 10.25 0\n12.25 13.25 14.25 1\n";
}

class PtxReader : public testing::Test {
  protected:
    Support::TempFolder folder_;

    Ovr::ErrorPtr list(const std::string& text, std::vector<ScanListing>& scans) {
        return Ovr::listScans(folder_.write("room.ptx", text), scans);
    }
    Ovr::ScanSource only(const std::string& text) {
        Ovr::ScanSource source;
        source.file = folder_.write("room.ptx", text);
        return source;
    }
};

TEST_F(PtxReader, TurnsColumnsOfTheFileIntoRowsOfTheRecords) {
    StanceScan scan(only(header("2", "3") +
                         "1 0 0 0\n1 0 1 0.5\n1 0 2 1\n"        // first column
                         "2 0 0 0.25\n0 0 0 0.7\n2 0 2 1\n"));  // second, with a missing return
    scan.memory.setNewSize(3, 2, true, false);
    scan.memory.records.assign(6, {{9, 9, 9, {}, {}}, 9});  // a load before this one
    const Ovr::ErrorPtr error = scan.loadPoints();
    ASSERT_FALSE(error) << error->message();
    const auto& memory = scan.memory;
    ASSERT_EQ(memory.rows, 3);
    ASSERT_EQ(memory.cols, 2);
    EXPECT_FALSE(memory.separateReflection);
    EXPECT_EQ(memory.at(0, 1).point.position(), (Tq_1_1::Vec3d<float>(2, 0, 0)));
    EXPECT_EQ(memory.at(2, 0).point.position(), (Tq_1_1::Vec3d<float>(1, 0, 2)));
    // 0.5 x 65535 rounds to 32768, low byte first.
    EXPECT_EQ(memory.at(1, 0).point.color, (Tq_1_1::Color4d<unsigned char>{{0, 0x80, 0, 0}}));
    const auto& missing = memory.at(1, 1).point;
    EXPECT_EQ(missing.position(), (Tq_1_1::Vec3d<float>()));
    EXPECT_EQ(missing.color, (Tq_1_1::Color4d<unsigned char>()));
    for (std::size_t i = 0; i < 16; ++i) {
        const double expected = i % 4 == 3 ? (i == 15 ? 1.0 : 0.0) : static_cast<double>(i) + 0.25;
        EXPECT_EQ(scan.metaData().SlamPose()[i], expected) << i;
    }
    EXPECT_EQ(scan.statistics.reflection->count, 5U);
    EXPECT_EQ(scan.statistics.distance->minimum, 1.0);
    EXPECT_DOUBLE_EQ(scan.statistics.distance->maximum, 2.8284271247461903);
    EXPECT_EQ(scan.warnings(), "");
}

TEST_F(PtxReader, AcceptsTheUsualVariants) {
    const struct {
        const char* name;
        std::string text;
        bool separate;
        int lastRed;  ///< colour channel 0 of the last point
        int normalZ = 0;
    } cases[] = {
        {"4 fields", header("1", "2") + "1 2 3 0.5\n4 5 6 0\n", false, 0},
        {"7 fields", header("1", "2") + "1 2 3 0.5 10 20 30\n4 5 6 1 40 50 60\n", true, 40},
        {"10 fields", header("1", "2") + "1 2 3 0.5 1 2 3 0 0 1\n4 5 6 1 40 5 6 0 0 -1\n", true, 40,
         -1},
        {"tabs, blanks, plus signs", header(" 1\t", "+2") + "  1 \t2 3 +0.5  \n4 5 +6 0\n", false,
         0},
    };
    for (const auto& c : cases) {
        for (const bool crlf : {false, true}) {
            SCOPED_TRACE(std::string(c.name) + (crlf ? ", CRLF" : ""));
            std::string text = c.text;
            for (std::size_t at = 0; crlf && (at = text.find('\n', at)) != std::string::npos;) {
                text.insert(at, 1, '\r');
                at += 2;
            }
            std::vector<ScanListing> scans;
            Ovr::ErrorPtr error = list(text, scans);
            ASSERT_FALSE(error) << error->message();
            ASSERT_EQ(scans.size(), 1U);
            StanceScan scan(scans[0].source);
            error = scan.loadPoints();
            ASSERT_FALSE(error) << error->message();
            EXPECT_EQ(scan.memory.separateReflection, c.separate);
            const auto& first = scan.memory.at(0, 0);
            EXPECT_EQ(first.point.position(), (Tq_1_1::Vec3d<float>(1, 2, 3)));
            EXPECT_EQ(c.separate ? first.reflection : first.point.color[1],
                      c.separate ? 32768 : 128);
            const auto& last = scan.memory.at(1, 0).point;
            EXPECT_EQ(last.position(), (Tq_1_1::Vec3d<float>(4, 5, 6)));
            EXPECT_EQ(last.color[0], c.lastRed);
            EXPECT_EQ(last.hasColor(), c.separate);
            EXPECT_EQ(last.normal.direction(), (Tq_1_1::Vec3d<double>(0, 0, c.normalZ)));
        }
    }
}

TEST_F(PtxReader, ListsTheScansOfAFileAndLoadsEachFromItsPlace) {
    const std::string text = header("1", "2") + "1 2 3 0.5\n4 5 6 0\n" + header("2", "1") +
                             "7 8 9 0.5 1 2 3\n\n0 0 0 0.5 0 0 0\n";
    std::vector<ScanListing> scans;
    const Ovr::ErrorPtr error = list(text, scans);
    ASSERT_FALSE(error) << error->message();
    ASSERT_EQ(scans.size(), 2U);
    EXPECT_EQ(scans[0].name, "room.ptx");
    EXPECT_EQ(scans[1].name, "room.ptx (2)");
    EXPECT_EQ(scans[1].classIdentifier,
              Ovr::VardexLib::CorvinStanceScanData::getStaticPointSetClassIdentifier());
    EXPECT_EQ(scans[1].source.scanIndex, 1U);
    EXPECT_EQ(scans[1].source.line, 13U);
    StanceScan second(scans[1].source);
    ASSERT_FALSE(second.loadPoints());
    EXPECT_EQ(second.memory.cols, 2);
    EXPECT_TRUE(second.memory.separateReflection);
    EXPECT_EQ(second.memory.at(0, 0).point.x, 7.0F);
}

}  // namespace
