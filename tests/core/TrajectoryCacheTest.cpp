// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/core/TrajectoryCache.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <thread>
#include <utility>

#include "support/TestNodes.h"

namespace Vardex {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
using TimesAndXs = std::vector<std::pair<double, double>>;

void fill(TrajectoryCache& cache, const TimesAndXs& path, double duration) {
    Testing::Nodes nodes;
    for (const auto& [time, x] : path) {
        nodes.push_back(Testing::nodeAt(time, {x, 0.0, 0.0}));
    }
    cache.fill(nodes, duration);
}

/// x of the answer; -1 for no answer.
double xAt(const TrajectoryCache& cache, double seconds) {
    const auto position = cache.positionAt(seconds);
    return position ? position->x : -1.0;
}

TEST(TrajectoryCache, AnswersFromTheNearestBin) {
    struct Case {
        const char* name;
        TimesAndXs path;
        double duration, seconds, x;
    };
    const TimesAndXs ends = {{7, 1}, {107, 2}};
    const double kMost = std::numeric_limits<double>::max();
    for (const Case& c : {
             Case{"half a bin before the front", ends, 100, -0.004, 1},
             Case{"before the front", ends, 100, -0.006, -1},
             Case{"end", ends, 100, 100, 2},
             Case{"after the end", ends, 100, 100.006, -1},
             Case{"just below half a bin", {{0, 1}, {1, 2}}, 9999, 0.49999999999999994, 1},
             Case{"half a bin", {{0, 1}, {1, 2}}, 9999, 0.5, 2},
             Case{"not a number", ends, 100, kNaN, -1},
             Case{"last node of a bin", {{0, 1}, {0.3, 2}, {0.4, 3}, {2, 9}}, 9999, 0, 3},
             Case{
                 "nodes after the end", {{0, 1}, {9999, 2}, {20000, 3}, {1e300, 4}}, 9999, 9999, 4},
             Case{"after the last node", {{0, 1}, {5, 2}}, 9999, 7000, 2},
             Case{"gap bounded by uncentred nodes", {{0, 0}, {1.25, 5}, {9.75, 90}}, 9999, 6, 52.5},
             Case{"gap before a full last bin",
                  {{0, 0}, {9998.6, 9998.6}, {20000, 0}},
                  9999,
                  90,
                  90},
             Case{"node before the first", {{5, 1}, {4.9, 7}, {6, 2}}, 9999, 0, 1},
             Case{"node without a time", {{5, 1}, {kNaN, 7}, {7, 3}}, 9999, 1, 2},
             Case{"out of order", {{0, 1}, {8, 9}, {4, 5}}, 9999, 6, 7},
             Case{"unknown duration", {{3, 1}, {4, 2}, {500, 3}}, kMost, 60, 3},
             Case{"first node without a time", {{kNaN, 1}, {0, 2}}, 9999, 0, -1},
             Case{"no nodes", {}, 9999, 0, -1},
             Case{"duration not a number", ends, kNaN, 0, -1},
             Case{"duration without a bin width", {{0, 1}, {1, 2}}, 1e-323, 0, -1},
         }) {
        TrajectoryCache cache;
        fill(cache, c.path, c.duration);
        EXPECT_DOUBLE_EQ(xAt(cache, c.seconds), c.x) << c.name;
    }
}

TEST(TrajectoryCache, ConcurrentFirstCallersWaitForTheOneBuildThatCompletes) {
    TrajectoryCache cache;
#if !defined(__SANITIZE_THREAD__)  // its call_once never returns after an exception
    EXPECT_THROW(cache.buildOnce([] { throw std::runtime_error("thrown"); }), std::runtime_error);
#endif
    std::atomic<int> builds = 0;
    std::atomic<int> answers = 0;
    const auto ask = [&] {
        cache.buildOnce([&] {
            ++builds;
            fill(cache, {{0, 1}, {10, 2}}, 10.0);
        });
        answers += xAt(cache, 10.0) == 2.0 ? 1 : 0;
    };
    std::thread other(ask);
    ask();
    other.join();
    EXPECT_EQ(builds, 1);
    EXPECT_EQ(answers, 2);
}

}  // namespace
}  // namespace Vardex
