// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "las/LasExtraBytes.h"
#include "las/LasBlocks.h"
#include "las/LasFacts.h"
#include "las/LasNames.h"
#include "las/LasRanges.h"
#include "support/LasBytes.h"
#include "support/TempFolder.h"

namespace Ovr::Formats {
namespace {

using Support::LasBytes;
using Support::poke;

class LasFile : public testing::Test {
  protected:
    /// Opens a file of these bytes and reads its header.
    void read(const std::string& bytes) {
        file_ = std::make_unique<InputFile>();
        remarks_ = std::make_unique<Remarks>();
        header_ = {};
        ASSERT_FALSE(file_->open(folder_.write("a.las", bytes)));
        ASSERT_FALSE(readLasHeader(*file_, header_, *remarks_));
    }
    LasFacts countFacts() {
        LasFactsCounter counter(header_);
        counter.begin();
        const auto blocks = openLasBlocks(*file_, header_, header_.count);
        while (!blocks->atEnd() && !blocks->next()) {
            counter.take(blocks->record(0), header_.recordLength, blocks->records());
        }
        return counter.facts();
    }
    std::string warnings() const {
        std::string text;
        for (const std::string& line : remarks_->warnings()) {
            text += line + "\n";
        }
        return text;
    }

    Support::TempFolder folder_;
    std::unique_ptr<InputFile> file_;
    std::unique_ptr<Remarks> remarks_;
    LasHeader header_;
};

TEST_F(LasFile, CountsClassesReturnsAndFlags) {
    LasBytes las;
    las.scale = {0.5, -0.5, 0.5};
    las.points = {{{2, 4, 6}}, {{-2, 8, 6}}, {{0, 0, 8}}};
    std::string old = las.bytes();
    const std::size_t at = las.headerSize() + 14;
    // Return 2 of 3; class 5, synthetic. Return 1; class 31, key point. Return 1; class 2, withheld.
    const unsigned char oldBytes[][2] = {{0x1A, 0x25}, {0x09, 0x5F}, {0x09, 0x82}};
    for (std::size_t i = 0; i < 3; ++i) {
        old.replace(at + 28 * i, 2, reinterpret_cast<const char*>(oldBytes[i]), 2);
    }
    poke(old, 111, std::uint32_t{2});
    poke(old, 115, std::uint32_t{1});
    read(old);
    LasFacts facts = countFacts();
    EXPECT_EQ(facts.classes[5] + facts.classes[31] + facts.classes[2], 3U);
    EXPECT_EQ(facts.returns[2], 1U);
    EXPECT_EQ(facts.returns[1], 2U);
    EXPECT_EQ(facts.synthetic, 1U);
    EXPECT_EQ(facts.keyPoints, 1U);
    EXPECT_EQ(facts.withheld, 1U);
    EXPECT_EQ(facts.overlap, 0U);
    EXPECT_EQ(facts.minimum, (std::array<double, 3>{-1, -4, 3}));
    EXPECT_EQ(facts.maximum, (std::array<double, 3>{1, 0, 4}));
    EXPECT_FALSE(returnsDiffer(header_, facts));
    EXPECT_NE(warnings().find("byte 139: a scale of -0.5 for y"), std::string::npos);

    las.minor = 4;
    las.format = 6;
    std::string recent = las.bytes();
    // Return 15 of 15; all four flags; class 200. The rest: return 1 of 1; overlap; class 40.
    const unsigned char newBytes[][3] = {{0xFF, 0x0F, 200}, {0x11, 0x08, 40}, {0x11, 0xF0, 40}};
    for (std::size_t i = 0; i < 3; ++i) {
        recent.replace(375 + 14 + 30 * i, 3, reinterpret_cast<const char*>(newBytes[i]), 3);
    }
    poke(recent, 255, std::uint64_t{3});
    read(recent);
    facts = countFacts();
    EXPECT_EQ(facts.classes[200], 1U);
    EXPECT_EQ(facts.classes[40], 2U);
    EXPECT_EQ(facts.returns[15], 1U);
    EXPECT_EQ(facts.overlap, 2U);
    EXPECT_EQ(facts.withheld, 1U);
    EXPECT_TRUE(returnsDiffer(header_, facts));
}

TEST_F(LasFile, FindsRangesOfScanAngleAndPointSource) {
    LasBytes las;
    las.points.resize(2);
    std::string old = las.bytes();
    const std::size_t first = las.headerSize();
    old[first + 16] = static_cast<char>(-90);
    old[first + 28 + 16] = 7;
    poke(old, first + 18, std::uint16_t{65535});
    poke(old, first + 28 + 18, std::uint16_t{256});
    las.minor = 4;
    las.format = 6;
    std::string recent = las.bytes();
    const std::size_t at = las.headerSize();
    poke(recent, at + 18, std::int16_t{-30000});
    poke(recent, at + 30 + 18, std::int16_t{1});
    poke(recent, at + 20, std::uint16_t{3});
    poke(recent, at + 30 + 20, std::uint16_t{2});
    const struct {
        const std::string& bytes;
        double angles[2];
        unsigned sources[2];
    } cases[] = {{old, {-90, 7}, {256, 65535}}, {recent, {-180, 0.006}, {2, 3}}};
    for (const auto& c : cases) {
        read(c.bytes);
        LasRanges ranges;
        ASSERT_FALSE(findLasRanges(*file_, header_, ranges, {}));
        EXPECT_EQ(lasScanAngle(header_, ranges.lowestAngle), c.angles[0]);
        EXPECT_EQ(lasScanAngle(header_, ranges.highestAngle), c.angles[1]);
        EXPECT_EQ(ranges.lowestSource, c.sources[0]);
        EXPECT_EQ(ranges.highestSource, c.sources[1]);
    }
}

TEST_F(LasFile, ComparesBoundsToAStepOfTheCoordinates) {
    LasBytes las;
    las.points = {{{100, 200, 300}}, {{400, 500, 600}}};
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto& [minimum, differ] :
         {std::pair{1.0, false}, {1.009, false}, {1.02, true}, {0.98, true}, {nan, true}}) {
        las.minimum = {minimum, 2.0, 3.0};
        las.maximum = {4.0, 5.0, 6.0};
        read(las.bytes());
        const LasFacts facts = countFacts();
        EXPECT_EQ(boundsDiffer(header_, facts), differ) << minimum;
    }
}

TEST_F(LasFile, NamesClassesAsTheStandardDoes) {
    EXPECT_EQ(lasClassName(3, 2), "ground");
    EXPECT_EQ(lasClassName(5, 8), "model key point (mass point)");
    EXPECT_EQ(lasClassName(1, 12), "overlap points");
    EXPECT_EQ(lasClassName(0, 13), "reserved");
    EXPECT_EQ(lasClassName(6, 8), "reserved");
    EXPECT_EQ(lasClassName(6, 17), "bridge deck");
    EXPECT_EQ(lasClassName(10, 22), "temporal exclusion");
    EXPECT_EQ(lasClassName(10, 63), "reserved");
    EXPECT_EQ(lasClassName(10, 64), "user-defined");
}

TEST_F(LasFile, NamesExtraDimensions) {
    const auto dimension = [](char type, char options, const std::string& name) {
        std::string bytes(192, '\0');
        bytes[2] = type;
        bytes[3] = options;
        bytes.replace(4, name.size(), name);
        return bytes;
    };
    const struct {
        std::string data;
        std::size_t extraBytes;
        const char* dimensions;
        std::size_t undocumented;
        const char* warning;
    } cases[] = {
        {"", 4, "", 4, ""},
        {dimension(5, 0, "OriginId") + dimension(10, 0, "height"), 12,
         "OriginId uint32;height double;", 0, ""},
        {dimension(23, 0, "normal") + dimension(0, 5, "raw"), 12, "normal uint16[3];raw 5 bytes;",
         1, ""},
        {dimension(9, 0, "a\x1B") + dimension(31, 0, "b"), 6, "a? float;", 2,
         "extra dimension 'b' has an unknown type"},
        {dimension(6, 0, "c"), 3, "", 3, "extra dimension 'c' takes 4 bytes, and 3 are left"},
        {dimension(1, 0, "d").substr(0, 100), 1, "", 1, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.dimensions);
        LasBytes las;
        las.extraBytes = c.extraBytes;
        las.vlrs = Support::lasRecord("LASF_Spec", 4, c.data);
        las.vlrCount = 1;
        las.points.resize(1);
        read(las.bytes());
        const LasExtraBytes extra = readLasExtraBytes(*file_, header_, *remarks_);
        std::string found;
        for (const LasDimension& one : extra.dimensions) {
            found += one.name + " " + one.type + ";";
        }
        EXPECT_EQ(found, c.dimensions);
        EXPECT_EQ(extra.undocumented, c.undocumented);
        EXPECT_NE(warnings().find(c.warning), std::string::npos) << warnings();
        EXPECT_EQ(warnings().empty(), std::string(c.warning).empty()) << warnings();
    }
}

TEST_F(LasFile, SaysWhatTheHeaderDoesNotCount) {
    const struct {
        const char* name;
        unsigned minor;
        std::function<void(std::string&)> change;
        const char* warning;
    } cases[] = {
        {"part of a record", 2, [](std::string& b) { b += std::string(27, 'x'); }, ""},
        {"two records more", 2, [](std::string& b) { b += std::string(60, 'x'); },
         "60 bytes after the last counted point, room for 2 points more than the header's 2"},
        {"waveforms", 3,
         [](std::string& b) {
             poke(b, 227, static_cast<std::uint64_t>(b.size()));
             b += std::string(60, 'x');
         },
         ""},
        {"an extended record", 4,
         [](std::string& b) {
             poke(b, 235, static_cast<std::uint64_t>(b.size()));
             poke(b, 243, std::uint32_t{1});
             b += Support::lasRecord("x", 1, "", true);
         },
         ""},
        {"the other count", 4,
         [](std::string& b) {
             poke(b, 247, std::uint64_t{0});
             poke(b, 107, std::uint32_t{2});
         },
         "no point in 64 bits, where LAS 1.4 counts them, and 2 in 32 bits; the second is taken"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        LasBytes las;
        las.minor = c.minor;
        las.points.resize(2);
        std::string bytes = las.bytes();
        c.change(bytes);
        read(bytes);
        EXPECT_EQ(header_.count, 2U);
        EXPECT_NE(warnings().find(c.warning), std::string::npos) << warnings();
        EXPECT_EQ(warnings().empty(), std::string(c.warning).empty()) << warnings();
    }
}

}  // namespace
}  // namespace Ovr::Formats
