// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cstddef>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "Ovr/FormatRegistry.h"
#include "kit/LineCount.h"
#include "ptx/PtxReader.h"
#include "support/ExpectError.h"
#include "support/LoadedScan.h"
#include "support/TempFolder.h"

namespace {

using Ovr::ScanListing;
using enum Ovr::Interfaces::ErrorCode;
using Support::StanceScan;

/// The lines of a matrix that turns x to y, y to z and z to x.
const std::string kMatrix = "0 1 0 0\n0 0 1 0\n1 0 0 0\n12.25 13.25 14.25 1\n";

std::string header(const std::string& columns, const std::string& rows,
                   const std::string& matrix = kMatrix) {
    return columns + "\n" + rows + "\n12.25 13.25 14.25\n0 1 0\n0 0 1\n1 0 0\n" + matrix;
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
    EXPECT_EQ(scan.metaData().SlamPose(),
              (std::array<double, 16>{0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 12.25, 13.25, 14.25, 1}));
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

TEST_F(PtxReader, SaysWhatIsOddAboutTheMatrix) {
    const std::string last = "12.25 13.25 14.25 1\n";
    const std::string other = "the scan's matrix has other axes than the lines above it";
    const struct {
        std::string matrix;
        std::vector<std::string> warnings;
    } cases[] = {
        {kMatrix, {}},
        {"0 1.000001 0 0\n0 0 1 0\n1 0 0 0\n12.2501 13.25 14.25 1\n", {}},
        {"0 2 0 0\n0 0 1 0\n1 0 0 0\n" + last, {"scales x, y, z by 2, 1, 1", other}},
        {"0 1 0 0\n0 0.6 0.8 0\n1 0 0 0\n" + last,
         {"shears: its axes 1 and 2 are not at a right angle (cosine 0.6)", other}},
        {"0 1 0 0\n0 0 1 0\n-1 0 0 0\n" + last, {"mirrors the points", other}},
        {"1 0 0 0\n0 1 0 0\n0 0 1 0\n" + last, {other + ", by up to 1;"}},
        {"0 1 0 0\n0 0 1 0\n1 0 0 0\n15.25 17.25 14.25 1\n",
         {"puts the scanner 5 m away from the position above it; the matrix is used"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.matrix);
        StanceScan scan(only(header("1", "1", c.matrix) + "1 2 3 0.5\n"));
        ASSERT_FALSE(scan.loadPoints());
        EXPECT_EQ(scan.data.getWarnings().size(), c.warnings.size()) << scan.warnings();
        for (const std::string& words : c.warnings) {
            EXPECT_NE(scan.warnings().find(words), std::string::npos) << scan.warnings();
        }
    }
}

TEST_F(PtxReader, TakesColorsThatAreFractions) {
    const struct {
        const char* colors[2];
        unsigned red[2];
        bool scaled;
    } cases[] = {
        {{"0.5 0 1", "1 0.25 0"}, {128, 255}, true},
        {{"0 0 1", "1 0 0"}, {0, 1}, false},       // a dark scan
        {{"0.5 0 0", "2 0.25 0"}, {1, 2}, false},  // one channel above 1
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.colors[0]);
        StanceScan scan(only(header("1", "2") + "1 2 3 0.5 " + c.colors[0] + "\n4 5 6 1 " +
                             c.colors[1] + "\n"));
        ASSERT_FALSE(scan.loadPoints());
        for (int row = 0; row < 2; ++row) {
            EXPECT_EQ(scan.memory.at(row, 0).point.color[0], c.red[row]);
        }
        EXPECT_EQ(scan.warnings().find("colours are fractions 0 .. 1; they are taken times 255") !=
                      std::string::npos,
                  c.scaled);
        EXPECT_EQ(scan.statistics.reflection->count, 2U);
    }
}

/// Records, remarks and numbers of a scan, or why it is refused.
std::string outcome(const Ovr::ScanSource& source, const Ovr::Formats::PtxSharing& sharing) {
    Support::MemoryScan memory;
    Ovr::StatisticsReport statistics;
    Ovr::Remarks remarks;
    Support::CountingWatch watch;
    const auto error =
        Ovr::Formats::makePtxReader(source, sharing)
            ->loadPoints({memory, nullptr, 1000, {&watch, &watch}, remarks}, statistics);
    if (error) {
        return error->message();
    }
    EXPECT_TRUE(watch.last == 1.0 && !watch.fell);
    std::ostringstream text;
    for (const std::string& line : remarks.warnings()) {
        text << line << '\n';
    }
    text.precision(17);
    for (const auto& record : memory.records) {
        const auto& [point, reflection] = record;
        text << point.x << ' ' << point.y << ' ' << point.z << ' ' << int{point.color[0]} << ' '
             << int{point.color[2]} << ' ' << reflection << '\n';
    }
    for (const auto& values : {statistics.distance, statistics.reflection}) {
        text << values->mean << ' ' << values->standardDeviation << ' ' << values->count << '\n';
    }
    return text.str();
}

TEST_F(PtxReader, GivesTheSameHoweverItsLinesAreSharedOut) {
    constexpr int kFirst = 11;  // line of the first point
    const auto file = [](int faultAt, const std::string& fault) {
        std::string text = header("4", "5");
        for (int line = kFirst; line < kFirst + 20; ++line) {
            text += line == faultAt ? fault
                                    : std::regex_replace("N.5 -N 0.5 0.N 0.N 0.3 1\n",
                                                         std::regex("N"), std::to_string(line));
        }
        return text;
    };
    const std::string next = header("1", "1") + "1 1 1 2 255 0 0\n";
    const std::string line = "21.5 1 2 0.5 1 0 0";
    const struct {
        std::string text;
        bool lenient;
        std::string words;  ///< in the outcome
    } cases[] = {
        {file(0, "") + next, false, "colours are fractions"},
        {file(20, "\n \t\n" + line + "   \n\r\n") + "\n" + next, false, "21.5 1 2 255 0"},
        {file(20, line + "\n1 2 x 0 0 0 0\n1\n"), false, "line 21: found 'x' as field 3"},
        {file(20, line + "\n1 2 x 0 0 0 0\n1\n"), true, "line 21: found 'x' as field 3"},
        {file(20, "1 2 3 -5 7 300 0\n"), false,
         "the farthest 5 away from 0, were cut to 0 or 1, first at line 20"},
        {file(20, std::string(Ovr::Formats::kLongestLine + 1, ' ') + "\n"), false,
         "line 20: found a line of more"},
        {file(20, line + std::string(Ovr::Formats::kLongestLine - line.size(), ' ') + "\n"), false,
         "21.5 1 2 255"},
        {file(30, " \n\n"), false, "line 31: found the end of the file after 19 points"},
        {file(30, "1 2"), false, "line 30: found 2 fields, expected 7"},
        {file(30, "1 2\n \n"), true,
         "found 2 fields, expected 7, as in the scan's first line; 19 points before it kept, the "
         "other cells have no return\n11.5 -11 0.5 28 255 7209\n"},
    };
    for (const auto& c : cases) {
        Ovr::ScanSource source = only(c.text);
        source.lenient = c.lenient;
        const std::string whole = outcome(source, {0, std::size_t{1} << 20});
        EXPECT_NE(whole.find(c.words), std::string::npos) << whole;
        for (const std::size_t blockSize : {1, 30, 64, 99, 250}) {
            for (const unsigned threads : {0, 1, 3}) {
                EXPECT_EQ(outcome(source, {threads, blockSize}), whole) << blockSize;
            }
        }
    }
}

}  // namespace
