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
            Ovr::Formats::readTrajectoryFile(folder_.write("walk.txt", text), {}, nodes_, remarks);
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

TEST_F(TrajectoryReader, BringsQuaternionsToUnitLength) {
    ASSERT_FALSE(read("1 0 0 0 0 0 0 0.99995\n2 0 0 0 0 0 3 4\n3 0 0 0 1 0 0 1\n"));
    // (0, 0, 0.6, 0.8): cos = 0.28, sin = 0.96
    EXPECT_NEAR(nodes_[1].pose[0], 0.28, 1e-15);
    EXPECT_NEAR(nodes_[1].pose[1], 0.96, 1e-15);
    EXPECT_EQ(nodes_[0].pose[0], 1.0);
}

}  // namespace
