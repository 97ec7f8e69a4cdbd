// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <limits>
#include <utility>

#include "session/PathStats.h"
#include "support/TestNodes.h"

namespace ScanHost {
namespace {

using Vardex::Testing::nodeAt;
using Vardex::Testing::Nodes;

TEST(PathStats, StepsInWhichTimeDoesNotRiseHaveALengthOnly) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    // From x = 1 on, time stays, then is not a number, then has fallen.
    const Nodes nodes{nodeAt(0, {0, 0, 5}),   nodeAt(1, {1, 0, 4}),  nodeAt(1, {9, 0, 6}),
                      nodeAt(nan, {9, 1, 5}), nodeAt(-3, {9, 2, 5}), nodeAt(-1, {9, 8, 5})};
    const PathStats stats = pathStats(nodes, kStopRadius);
    EXPECT_FALSE(areInOrderOfTime(nodes));
    EXPECT_EQ(stats.timelessSteps, 3U);
    EXPECT_EQ(stats.duration, 4.0);
    EXPECT_EQ(nodes[stats.lowest].pose[14], 4.0);
    EXPECT_EQ(nodes[stats.highest].pose[14], 6.0);
    EXPECT_NEAR(stats.length, 1.4142136 + 8.2462113 + 1.4142136 + 1 + 6, 1e-6);
    EXPECT_EQ(stats.medianStep, 1.5);
    ASSERT_TRUE(stats.speed);
    EXPECT_NEAR(stats.speed->median, (1.4142136 + 3) / 2, 1e-6);
    EXPECT_EQ(stats.speed->largest, 3.0);
    EXPECT_EQ(stats.speed->at, 4U);
    EXPECT_TRUE(areInOrderOfTime(std::span(nodes).first(3)));

    const PathStats still = pathStats(std::span(nodes).subspan(1, 2), kStopRadius);
    EXPECT_FALSE(still.speed || still.turning || still.medianStep);
    EXPECT_TRUE(still.gaps.empty());
}

TEST(PathStats, AStopIsLongerThanASecondWithinFiveCentimetres) {
    const struct {
        const char* name;
        double seconds;
        double apart;
        bool isStop;
    } cases[] = {{"a second", 1.0, 0.0, false},
                 {"longer", 1.25, 0.05, true},
                 {"farther", 1.25, 0.0501, false}};
    for (const auto& c : cases) {
        const Nodes nodes{nodeAt(0, {}), nodeAt(10, {1, 0, 0}),
                          nodeAt(10 + c.seconds, {1, c.apart, 0}), nodeAt(20, {2, 0, 0})};
        const PathStats stats = pathStats(nodes, kStopRadius);
        ASSERT_EQ(stats.stops.size(), c.isStop ? 1U : 0U) << c.name;
        if (c.isStop) {
            EXPECT_EQ(stats.stops[0].first, 1U);
            EXPECT_EQ(stats.stops[0].last, 2U);
        }
    }
    // 1 m/s, then a rest of 2 s: 4,000 nodes in a second, of which the search skips most.
    Nodes dense;
    for (int i = 0; i <= 12000; ++i) {
        dense.push_back(nodeAt(i / 4000.0, {i < 4000 ? i / 4000.0 : 1.0, 0, 0}));
    }
    const PathStats stats = pathStats(dense, kStopRadius);
    ASSERT_EQ(stats.stops.size(), 1U);
    EXPECT_NEAR(dense[stats.stops[0].first].time, 0.95, 0.011);
    EXPECT_EQ(stats.stops[0].last, 12000U);
    EXPECT_TRUE(pathStats(dense, {}).stops.empty());
}

TEST(PathStats, TurningTakesTheShorterWay) {
    // 10 degrees about z and back, then 190 about x, which is 170 the other way round, and from
    // there to 170 about x.
    const double cosine = 0.984807753;
    const double sine = 0.173648178;
    Nodes nodes{nodeAt(0, {}), nodeAt(1, {}), nodeAt(2, {}), nodeAt(4, {}), nodeAt(5, {})};
    nodes[1].pose[0] = nodes[1].pose[5] = cosine;
    nodes[1].pose[1] = sine;
    nodes[1].pose[4] = -sine;
    for (const auto& [node, side] : {std::pair{3, -sine}, {4, sine}}) {
        nodes[node].pose[5] = nodes[node].pose[10] = -cosine;
        nodes[node].pose[6] = side;
        nodes[node].pose[9] = -side;
    }
    const PathStats stats = pathStats(nodes, kStopRadius);
    ASSERT_TRUE(stats.turning);
    EXPECT_NEAR(stats.turning->median, 15.0, 1e-6);
    EXPECT_NEAR(stats.turning->largest, 85.0, 1e-6);
    EXPECT_EQ(stats.turning->at, 2U);
}

}  // namespace
}  // namespace ScanHost
