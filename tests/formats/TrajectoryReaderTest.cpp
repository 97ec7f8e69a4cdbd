// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cmath>
#include <string>
#include <vector>

#include "support/ExpectError.h"
#include "support/TempFolder.h"
#include "trajectory/TrajectoryReader.h"

namespace {

using enum Ovr::Interfaces::ErrorCode;
using Ovr::VardexLib::TrajectoryNode;

constexpr const char* kExportHeader =
    "//world_time x y z q0 q1 q2 q3 r g b nx ny nz roll pitch yaw\n";

class TrajectoryReader : public testing::Test {
  protected:
    Support::TempFolder folder_;
    std::vector<TrajectoryNode> nodes_;
    std::string warnings_;

    Ovr::ErrorPtr read(const std::string& text) {
        Ovr::Remarks remarks;
        Ovr::ErrorPtr error =
            Ovr::Formats::readTrajectoryFile(folder_.write("walk.txt", text), nodes_, remarks);
        warnings_.clear();
        for (const std::string& line : remarks.warnings()) {
            warnings_ += line + "\n";
        }
        return error;
    }
};

TEST_F(TrajectoryReader, ReadsBothFormsWithTheirOrderOfTheQuaternion) {
    // 120 degrees about (1, 1, 1) carries x to y, y to z, z to x.
    const double expected[16] = {0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 4, 5, 6, 1};
    // A quarter turn about z carries x to y.
    const double quarter[16] = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 4, 5, 6, 1};
    const struct {
        const char* name;
        std::string text;
        const double (&pose)[16];
    } cases[] = {
        {"TUM", "7.5 4 5 6 0.5 0.5 0.5 0.5\n", expected},
        {"TUM, quarter turn", "7.5 4 5 6 0 0 0.707106781186548 0.707106781186547\n", quarter},
        {"exported",
         std::string(kExportHeader) +
             "7.5 4 5 6 0.707106781186547 0 0 0.707106781186548 0 0 0 1 0 0 1 2 3\n",
         quarter},
        {"comments, blanks, CRLF",
         "\xEF\xBB\xBF# time x y z\r\n\r\n// more\r\n 7.5\t4 5 6  .5 .5 "
         "+.5 5e-1 \r\n#end",
         expected},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Ovr::ErrorPtr error = read(c.text);
        ASSERT_FALSE(error) << error->message();
        ASSERT_EQ(nodes_.size(), 1U);
        EXPECT_EQ(nodes_[0].time, 7.5);
        for (std::size_t i = 0; i < 16; ++i) {
            EXPECT_NEAR(nodes_[0].pose[i], c.pose[i], 1e-14) << i;
        }
        EXPECT_EQ(warnings_, "");
    }
}

TEST_F(TrajectoryReader, RefusesEverythingElseWithLineFoundAndExpected) {
    const std::string good = "1 4 5 6 0 0 0 1\n";
    const struct {
        std::string text;
        Ovr::Interfaces::ErrorCode code;
        const char* message;
    } cases[] = {
        {good + "2 4 5 6 0 0 0\n", WrongFormat, "line 2: found 7 fields, expected 8"},
        {good + "\n# c\n2 4 5 6 0 0 0 1 9\n", WrongFormat, "line 4: found 9 fields, expected 8"},
        {good + kExportHeader + "2 4 5 6 1 0 0 0 0 0 0 0 0 1 0 0 0\n", WrongFormat,
         "line 3: found 17 fields, expected 8"},
        {good + "2 4 nan 6 0 0 0 1\n", InvalidValue, "line 2: found 'nan' as field 3"},
        {good + "2 4 2e30 6 0 0 0 1\n", InvalidValue, "line 2: found the coordinate 2e+30"},
        {good + "2 4 5 6 0 0 0 0\n", InvalidValue,
         "line 2: found a quaternion of length 0, expected length 1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.message);
        nodes_.assign(3, {});
        Support::expectError(read(c.text), c.code, std::string("walk.txt: ") + c.message);
        EXPECT_EQ(nodes_.size(), 3U);
    }
}

TEST_F(TrajectoryReader, BringsQuaternionsToUnitLength) {
    ASSERT_FALSE(read("1 0 0 0 0 0 0 0.99995\n2 0 0 0 0 0 3 4\n3 0 0 0 1 0 0 1\n"));
    EXPECT_NE(
        warnings_.find("2 quaternions brought to unit length, off by up to 4, first at line 2"),
        std::string::npos)
        << warnings_;
    // (0, 0, 0.6, 0.8): cos = 0.28, sin = 0.96
    EXPECT_NEAR(nodes_[1].pose[0], 0.28, 1e-15);
    EXPECT_NEAR(nodes_[1].pose[1], 0.96, 1e-15);
    EXPECT_EQ(nodes_[0].pose[0], 1.0);
}

TEST_F(TrajectoryReader, ReportsTimesOutOfOrder) {
    const struct {
        std::vector<double> times;
        const char* warning;  // after the file's name
    } cases[] = {
        {{0, 1, 2, 3}, ""},
        {{0, 1, 0.5, 1.5, 1.25, 2},
         "2 times before the time of the line above, by up to 0.5 s, first at line 3\n"},
        {{0, 1, 1, 1, 2}, "2 times equal to the time of the line above, first at line 3\n"},
        {{0, 1, 2, 12, 13}, ""},
        {{0, 1, 2, 12.5, 13.5},
         "1 gap of up to 10.5 s, above 10 x the median step of 1 s, first at line 4\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.warning);
        std::string text;
        for (const double time : c.times) {
            text += std::to_string(time) + " 0 0 0 0 0 0 1\n";
        }
        ASSERT_FALSE(read(text));
        EXPECT_EQ(nodes_.size(), c.times.size());
        EXPECT_EQ(nodes_.back().time, c.times.back());
        EXPECT_EQ(warnings_.empty(), *c.warning == 0);
        EXPECT_THAT(warnings_, testing::EndsWith(c.warning));
    }
}

}  // namespace
