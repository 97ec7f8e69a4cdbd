// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/TestNodes.h"
#include "trajectory/core/TrajectoryFraction.h"
#include "trajectory/core/TrajectorySelection.h"

namespace Vardex {
namespace {

using Testing::nodeAt;
using Point = Tq_1_1::Vec3d<double>;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Nodes on the x axis, at x = 1, 2, ... and the given times.
Testing::Nodes walk(const std::vector<double>& times) {
    Testing::Nodes nodes;
    for (const double time : times) {
        nodes.push_back(nodeAt(time, {static_cast<double>(nodes.size()) + 1.0, 0.0, 0.0}));
    }
    return nodes;
}

TEST(TrajectorySelection, TimeAloneChoosesNodes) {
    struct Case {
        const char* name;
        std::vector<double> times;
        double start, end;
        std::vector<double> xs;
    };
    for (const Case& c : {
             Case{"both bounds included", {100, 101, 102, 103}, 1, 2, {2, 3}},
             Case{"instant at the start", {100, 101, 100}, 0, 0, {1, 3}},
             Case{"none inside", {100, 101}, 0.25, 0.75, {}},
             Case{"out of order", {100, 103, 99, 101}, -1, 1, {1, 3, 4}},
             Case{"time not a number", {100, kNaN, 101}, 0, 9, {1, 3}},
             Case{"bound not a number", {100, 101}, kNaN, 9, {}},
         }) {
        std::vector<double> xs;
        for (const Point& p : TrajectorySelection::selectPositions(walk(c.times), c.start, c.end)) {
            xs.push_back(p.x);
        }
        EXPECT_EQ(xs, c.xs) << c.name;
    }
}

TEST(TrajectorySelection, StandingStillGivesOnePosition) {
    struct Case {
        const char* name;
        std::vector<Point> positions, kept;
    };
    const Point o;
    const Point p(10000, 0, 0);
    for (const Case& c : {
             Case{"repeated", {p, p, p}, {p}},
             Case{"back again", {p, o, p}, {p, o, p}},
             Case{"origin repeated", {o, o}, {o}},
             Case{"anything after the origin", {o, {1e-9, 0, 0}}, {o, {1e-9, 0, 0}}},
             Case{"less than 1e-4 of the length", {p, {10000, 0.9999, 0}}, {p}},
             Case{"more", {p, {10000, 1.0001, 0}}, {p, {10000, 1.0001, 0}}},
             Case{"both sides exactly 1", {p, {10001, 0, 0}}, {p}},
             // 1.00005 m is more than 1e-4 of 10000 m, and less than 1e-4 of 10001.00005 m.
             Case{"by the shorter", {p, {10001.00005, 0, 0}}, {p, {10001.00005, 0, 0}}},
             Case{"crept away", {p, {10000.9, 0, 0}, {10001.8, 0, 0}}, {p, {10001.8, 0, 0}}},
             Case{"not a number", {p, {kNaN, 0, 0}, o}, {p, o}},
         }) {
        Testing::Nodes nodes;
        for (const Point& position : c.positions) {
            nodes.push_back(nodeAt(0.0, position));
        }
        EXPECT_EQ(TrajectorySelection::selectPositions(nodes, 0.0, 1.0), c.kept) << c.name;
    }
}

TEST(TrajectoryFraction, GrowsFromTheNearestNode) {
    struct Case {
        const char* name;
        Point point;
        double low, high;  // the predicate holds for x within
        double begin, end;
        std::vector<double> asked;  // x of the positions, in order
    };
    const Testing::Nodes nodes = walk({50, 52, 54, 56, 60});
    for (const Case& c : {
             Case{"everywhere", {3, 0, 0}, 0, 9, 0.0, 0.5, {3, 2, 1, 3, 4, 5}},
             Case{"nowhere", {3, 0, 0}, 8, 9, 0.2, 0.2, {3, 3}},
             Case{"around", {3, 7, 0}, 2, 4, 0.1, 0.3, {3, 2, 1, 3, 4, 5}},
             Case{"of two equally near the first", {2.5, 0, 1}, 2, 2, 0.1, 0.1, {2, 1, 2, 3}},
             Case{"nearest to nowhere", {kNaN, 0, 0}, 1, 1, 0.0, 0.0, {1, 1, 2}},
             Case{"last node", {9, 0, 0}, 4, 5, 0.3, 0.5, {5, 4, 3, 5}},
         }) {
        std::vector<double> asked;
        const auto belongs = [&](const Point& p) {
            asked.push_back(p.x);
            return p.x >= c.low && p.x <= c.high;
        };
        const TimeFraction fraction =
            TrajectoryFraction::fractionAround(nodes, c.point, belongs, 20.0);
        EXPECT_DOUBLE_EQ(fraction.begin, c.begin) << c.name;
        EXPECT_DOUBLE_EQ(fraction.end, c.end) << c.name;
        EXPECT_EQ(asked, c.asked) << c.name;
    }
    const auto always = [](const Point&) { return true; };
    const TimeFraction endless = TrajectoryFraction::fractionAround(nodes, {}, always, 0.0);
    EXPECT_TRUE(std::isnan(endless.begin) && std::isinf(endless.end));
}

}  // namespace
}  // namespace Vardex
