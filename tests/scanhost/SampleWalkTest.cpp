// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "Program.h"
#include "sample/SampleScan.h"
#include "support/LasBytes.h"

namespace ScanHost::Tests {
namespace {

using Vec3 = Tq_1_1::Vec3d<double>;

// The path between two nodes is at most this far from either [m].
constexpr double kNodeReach = 0.05;

double apart(const Vec3& a, const Vec3& b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

Vec3 vectorOf(const Json::Value& point) {
    return point.isArray()
               ? Vec3(point[0].asDouble(), point[1].asDouble(), point[2].asDouble())
               : Vec3(point["x"].asDouble(), point["y"].asDouble(), point["z"].asDouble());
}

struct LasValue {
    Tq_1_1::Vec3d<double> point;
    std::uint16_t intensity;
    std::uint16_t red;
    double time;
};

/// The points of a LAS file of format 3, read byte by byte.
std::vector<LasValue> readLas(const std::string& bytes) {
    std::vector<LasValue> values;
    const auto length = Support::peek<std::uint16_t>(bytes, 105);
    const auto first = Support::peek<std::uint32_t>(bytes, 96);
    for (std::uint32_t i = 0; i < Support::peek<std::uint32_t>(bytes, 107); ++i) {
        const std::size_t record = first + std::size_t{i} * length;
        LasValue value{{},
                       Support::peek<std::uint16_t>(bytes, record + 12),
                       Support::peek<std::uint16_t>(bytes, record + 28),
                       Support::peek<double>(bytes, record + 20)};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            value.point[axis] = Support::peek<std::int32_t>(bytes, record + 4 * axis) *
                                    Support::peek<double>(bytes, 131 + 8 * axis) +
                                Support::peek<double>(bytes, 155 + 8 * axis);
        }
        values.push_back(value);
    }
    return values;
}

class SampleWalk : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(run({"sample", folder_.file("")}).exitCode, 0);
        walk_ = folder_.file("walk.las");
    }

    Folder folder_;
    std::string walk_;
};

/// An order that rounding in a file does not change.
bool isBefore(const LasValue& a, const LasValue& b) {
    return std::tuple(std::llround(a.time * 1e6), std::llround(a.point.x * 1e3), a.point.y) <
           std::tuple(std::llround(b.time * 1e6), std::llround(b.point.x * 1e3), b.point.y);
}

TEST_F(SampleWalk, SortedPointsKeepTheirPlacesColoursAndTimes) {
    const std::string sorted = folder_.file("sorted.las");
    const Json::Value report = runJson({"sort", walk_, "-o", sorted});
    std::vector<LasValue> before = readLas(readFile(walk_));
    const std::vector<LasValue> after = readLas(readFile(sorted));
    ASSERT_EQ(after.size(), before.size());
    EXPECT_EQ(report["points"].asUInt64(), after.size());
    EXPECT_FALSE(std::is_sorted(before.begin(), before.end(),
                                [](const auto& a, const auto& b) { return a.time < b.time; }));
    std::map<double, int> pointsOfTime;
    int pairsOfBeams = 0;
    std::vector<LasValue> pairs = after;
    std::sort(before.begin(), before.end(), isBefore);
    std::sort(pairs.begin(), pairs.end(), isBefore);
    for (std::size_t i = 0; i < after.size(); ++i) {
        EXPECT_TRUE(i == 0 || after[i - 1].time <= after[i].time) << i;
        ASSERT_LT(apart(pairs[i].point, before[i].point), 1e-4) << i;
        ASSERT_NEAR(pairs[i].time, before[i].time, 1e-6) << i;
        ASSERT_EQ(pairs[i].intensity, before[i].intensity) << i;
        ASSERT_EQ(pairs[i].red, before[i].red) << i;
        ++pointsOfTime[after[i].time];
        // Two beams leave at a time in opposite directions: where both return, the scanner stands
        // between the two points. Times that went to other points would show here.
        if (i > 0 && after[i].time == after[i - 1].time) {
            ++pairsOfBeams;
            const Vec3 scanner = Sample::walkPosition(after[i].time - Sample::kWalkStart);
            const double way = apart(after[i - 1].point, scanner) + apart(scanner, after[i].point);
            ASSERT_NEAR(way, apart(after[i - 1].point, after[i].point), 1e-3) << i;
        }
    }
    EXPECT_GT(pairsOfBeams, 15000);
    std::uint64_t sharing = 0;
    for (const auto& [time, count] : pointsOfTime) {
        sharing += count > 1 ? static_cast<std::uint64_t>(count) : 0U;
    }
    EXPECT_EQ(report["sharingTime"].asUInt64(), sharing);
    EXPECT_GT(sharing, 30000U);
}

TEST_F(SampleWalk, WhereFollowsTheWalk) {
    const Json::Value known =
        runJson({"where", walk_, "--at", "0,10", "32", "-1", "33", "4.525"})["positions"];
    EXPECT_LT(apart(vectorOf(known[0]), {431201.0, 5412301.0, 313.55}), 1e-5);
    EXPECT_LT(apart(vectorOf(known[1]), {431204.9, 5412302.5, 313.55}), 1e-5);
    EXPECT_LT(apart(vectorOf(known[2]), {431207.0, 5412301.6, 313.6}), 1e-5);
    EXPECT_LT(apart(vectorOf(known[5]), Sample::walkPosition(4.525)), kNodeReach);
    EXPECT_NEAR(known[5]["timeToNearestNode"].asDouble(), 0.025, 1e-6);
    for (const Json::ArrayIndex outside : {3, 4}) {
        EXPECT_TRUE(known[outside]["x"].isNull());
    }
}

TEST_F(SampleWalk, PathHoldsTheNodesOfTheStretchAndStandsOnce) {
    struct Case {
        const char* name;
        std::vector<std::string> options;
        double from;
        double to;
    };
    for (const Case& c : {
             Case{"all", {}, 0.0, 32.0},
             Case{"a quarter", {"--from", "0.25", "--to", "0.5"}, 8.0, 16.0},
             Case{"times at nodes", {"--from-time", "0.3", "--to-time", "0.7"}, 0.3, 0.7},
             Case{"standing", {"--from-time", "9.5", "--to-time", "10.5"}, 9.5, 10.5},
             Case{"outside", {"--from", "2", "--to", "3"}, 64.0, 96.0},
         }) {
        std::vector<std::string> arguments{"path", walk_};
        arguments.insert(arguments.end(), c.options.begin(), c.options.end());
        const Json::Value path = runJson(arguments)["positions"];
        std::vector<Vec3> expected;
        for (int node = 0; node <= 640; ++node) {
            const Vec3 position = Sample::walkPosition(node * 0.05);
            const bool inside = node * 0.05 >= c.from - 1e-6 && node * 0.05 <= c.to + 1e-6;
            // Repeats are told by the distance from the project's origin, some ten metres.
            if (inside && (expected.empty() || apart(expected.back(), position) > 1.5e-3)) {
                expected.push_back(position);
            }
        }
        ASSERT_EQ(path.size(), expected.size()) << c.name;
        for (Json::ArrayIndex i = 0; i < path.size(); ++i) {
            EXPECT_LT(apart(vectorOf(path[i]), expected[i]), 2e-3) << c.name << ' ' << i;
        }
    }
}

TEST_F(SampleWalk, NearGivesTheSpanAroundAPoint) {
    const auto near = [&](const char* point, const char* within) {
        return runJson({"near", walk_, "--point", point, "--within", within});
    };
    const Json::Value standing = near("431204.9,5412302.5,313.55", "0.2");
    double begin = 9.0;
    double end = 11.0;
    const Vec3 stand{431204.9, 5412302.5, 313.55};
    for (; apart(Sample::walkPosition(begin), stand) <= 0.2; begin -= 0.05) {
    }
    for (; apart(Sample::walkPosition(end), stand) <= 0.2; end += 0.05) {
    }
    EXPECT_NEAR(standing["span"]["beginTime"].asDouble(), begin + 0.05, 1e-5);
    EXPECT_NEAR(standing["span"]["endTime"].asDouble(), end - 0.05, 1e-5);
    EXPECT_NEAR(standing["span"]["beginFraction"].asDouble(), (begin + 0.05) / 32, 1e-6);
    const Json::Value far = near("431204.9,5412302.5,323.55", "0.2");
    EXPECT_TRUE(far["span"].isNull());
    EXPECT_NEAR(standing["nearestDistance"].asDouble(), 0.0, 1e-5);
    EXPECT_NEAR(far["nearestDistance"].asDouble(), 10.0, 0.05);
}

TEST_F(SampleWalk, ExportReadsBackAsTheSameTrajectory) {
    const std::string text = folder_.file("exported.txt");
    const Json::Value report = runJson({"export", walk_, "-o", text, "--verify"});
    EXPECT_EQ(report["nodes"], 641);
    for (const char* part : {"time", "position", "rotation"}) {
        EXPECT_LE(report["verified"][part].asDouble(), 1e-9) << part;
    }
    const std::string content = readFile(text);
    EXPECT_EQ(content.find("//world_time x y z q0 q1 q2 q3 r g b nx ny nz roll pitch yaw\n"
                           "462500000.000000000000000 431201.000000000000000 "),
              0U);
    EXPECT_EQ(std::count(content.begin(), content.end(), '\n'), 642);
    EXPECT_EQ(run({"export", walk_}).out, content);
    EXPECT_EQ(runJson({"export", walk_})["text"], content);
}

TEST_F(SampleWalk, IsAlsoReachedThroughTheProject) {
    std::filesystem::rename(folder_.file("walk.txt"), folder_.file("elsewhere.txt"));
    const auto project = folder_.write("known-by-its-content", R"({"version": 1, "scans": [
        {"kind": "stance", "name": "A", "points": "room-a.ptx"},
        {"kind": "mobile", "name": "W", "points": "walk.las", "trajectory": "elsewhere.txt"}]})");
    const Json::Value report = runJson({"where", project, "--scan", "2", "--at", "10"});
    EXPECT_EQ(report["scan"], "W");
    EXPECT_LT(apart(vectorOf(report["positions"][0]), {431204.9, 5412302.5, 313.55}), 1e-5);
    const Outcome either = run({"where", project, "--at", "10"});
    EXPECT_EQ(either.exitCode, 1);
    EXPECT_NE(either.err.find(project + ": found 2 scans"), std::string::npos) << either.err;
    const Outcome early =
        run({"times", project, "--scan", "2", "--time-offset", "-1e6", "--progress=none"});
    EXPECT_EQ(early.exitCode, 1);
    EXPECT_NE(early.err.find("461500000.0008"), std::string::npos) << early.err;
}

}  // namespace
}  // namespace ScanHost::Tests
