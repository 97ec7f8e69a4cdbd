// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "support/ExpectError.h"
#include "support/LasBytes.h"
#include "support/LoadedScan.h"
#include "support/TempFolder.h"

namespace {

using Ovr::ClockSettings;
using Ovr::TimeUnit;
using enum Ovr::Interfaces::ErrorCode;
using Support::expectError;
using Support::MobileScan;

class LasTimes : public testing::Test {
  protected:
    Support::TempFolder folder_;

    /// A scan of points with these times, its points loaded.
    std::unique_ptr<MobileScan> scanOf(const std::vector<double>& times, unsigned format = 1,
                                       std::uint16_t encoding = 0) {
        Support::LasBytes las;
        las.format = format;
        las.encoding = encoding;
        for (const double time : times) {
            las.points.push_back({{1, 2, 3}, 4, time, {}});
        }
        Ovr::ScanSource source;
        source.file = folder_.write("walk.las", las.bytes());
        auto scan = std::make_unique<MobileScan>(source);
        EXPECT_FALSE(scan->loadPoints());
        return scan;
    }
};

std::vector<Ovr::VardexLib::TrajectoryNode> nodesAt(const std::vector<double>& times) {
    std::vector<Ovr::VardexLib::TrajectoryNode> nodes(times.size());
    for (std::size_t i = 0; i < times.size(); ++i) {
        nodes[i].time = times[i];
    }
    return nodes;
}

TEST_F(LasTimes, CountFromTheFirstNodeOrTheEarliestPoint) {
    constexpr ClockSettings kPlain;
    constexpr ClockSettings kMilliseconds{TimeUnit::Milliseconds, 0.0};
    constexpr ClockSettings kShifted{TimeUnit::Microseconds, 100.0};
    const struct {
        const char* name;
        ClockSettings clock;
        std::vector<double> points;
        std::vector<double> nodes;
        std::vector<std::uint64_t> microseconds;
        double duration;
        double zero;
    } cases[] = {
        {"points alone", kPlain, {12.5, 10.0, 11.25}, {}, {2500000, 0, 1250000}, 2.5, 10.0},
        {"nodes around", kPlain, {12.0, 10.5}, {10.0, 14.0}, {2000000, 500000}, 4.0, 10.0},
        {"halves", kPlain, {0.0, 0.0000025, 0.0000004}, {}, {0, 3, 0}, 0.0000025, 0.0},
        {"ms", kMilliseconds, {2000.0, 3500.0}, {}, {0, 1500000}, 1.5, 2.0},
        {"us", kShifted, {3e6, 2e6}, {101.0, 104.0}, {2000000, 1000000}, 3.0, 101.0},
        {"longest", kPlain, {5.0, 4299.967295}, {}, {0, 4294967295}, 4294.967295, 5.0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const auto scan = scanOf(c.points);
        scan->memory.source.clock = c.clock;
        scan->data.setTrajectoryNodes(nodesAt(c.nodes));
        const Ovr::ErrorPtr error = scan->loadTimes();
        ASSERT_FALSE(error) << error->message();
        EXPECT_EQ(scan->times->times, c.microseconds);
        EXPECT_NEAR(scan->metaData().ScanDuration(), c.duration, 1e-9);
        EXPECT_EQ(scan->data.getTimeZero(), c.zero);
    }
}

TEST_F(LasTimes, AreRefusedBeforeTheFirstIsWritten) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        std::vector<double> points;
        std::vector<double> nodes;
        Ovr::Interfaces::ErrorCode code;
        const char* words;
        unsigned format = 1;
    } cases[] = {
        {{1.0}, {}, NoTimes, "found point format 2, which has no time", 2},
        {{5.0, 4299.967296}, {}, TimeRange, "4294.967296 s after time zero, expected at most"},
        {{100.0, 120.0}, {10.0, 14.0}, TimeRange, "expected times that meet the trajectory's 10."},
        {{nan, nan}, {}, TimeRange, "found 2 points without a time that is a finite number"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.words);
        const auto scan = scanOf(c.points, c.format);
        scan->data.setTrajectoryNodes(nodesAt(c.nodes));
        expectError(scan->loadTimes(), c.code, c.words);
        EXPECT_EQ(scan->times->writes, 0U);
        EXPECT_EQ(scan->metaData().ScanDuration(), 0.0);
    }
}

TEST_F(LasTimes, AreWithinTheTrajectoryToTheMicrosecond) {
    const auto scan = scanOf({-4e-7, -5e-7, 4.0000004, 4.0000006, 5000.0});
    scan->data.setTrajectoryNodes(nodesAt({0.0, 4.0}));
    const Ovr::ErrorPtr error = scan->loadTimes();
    ASSERT_FALSE(error) << error->message();
    EXPECT_EQ(scan->times->times, (std::vector<std::uint64_t>{0, 0, 4000000, 4000001, 4294967295}));
    std::string warnings;
    for (const std::string& warning : scan->data.getWarnings()) {
        warnings += warning + "\n";
    }
    EXPECT_NE(warnings.find("1 of 5 points measured before the first pose"), std::string::npos);
    EXPECT_NE(warnings.find("scan time 0, the first is point 1"), std::string::npos);
    EXPECT_NE(warnings.find("2 of 5 points measured after the last pose"), std::string::npos);
}

TEST_F(LasTimes, OutsideTheTrajectoryAreToldAndLeaveTheRestAlone) {
    const auto scan = scanOf({9.5, 12.0, std::nan(""), 15.5, 9.0});
    scan->data.setTrajectoryNodes(nodesAt({10.0, 14.0}));
    const Ovr::ErrorPtr error = scan->loadTimes();
    ASSERT_FALSE(error) << error->message();
    EXPECT_EQ(scan->times->times, (std::vector<std::uint64_t>{0, 2000000, 0, 5500000, 0}));
    EXPECT_EQ(scan->metaData().ScanDuration(), 4.0);
    const auto warnings = scan->data.getWarnings();
    for (const char* words :
         {"1 of 5 points with a time that is no finite number, taken as scan time 0, the first is "
          "point 2",
          "2 of 5 points measured before the first pose, by up to 1.000000 s, taken as scan time "
          "0, the first is point 0",
          "1 of 5 points measured after the last pose, by up to 1.500000 s, the first is point "
          "3"}) {
        EXPECT_TRUE(std::any_of(warnings.begin(), warnings.end(), [&](const std::string& warning) {
            return warning.find(words) != std::string::npos;
        })) << words;
    }
}

TEST_F(LasTimes, TellTheClockTheyLookLikeAndTheHeaders) {
    const struct {
        double time;
        std::uint16_t encoding;
        const char* words;
        bool agree = false;
    } cases[] = {
        {1305031102.0, 0, "look like Unix or GPS time; the header says GPS week"},
        {374103812.0, 1, "look like adjusted GPS time; the header says adjusted GPS time", true},
        {604800.0, 0, "look like GPS week seconds; the header says GPS week seconds", true},
        {604800.5, 0, "look like adjusted GPS time; the header says GPS week seconds"},
        {1305031102160.0, 0, "look like Unix or GPS time in milliseconds"},
    };
    for (const auto& c : cases) {
        const auto scan = scanOf({c.time}, 1, c.encoding);
        ASSERT_FALSE(scan->loadTimes());
        ASSERT_FALSE(scan->loadTimes());
        const auto said = c.agree ? scan->data.getNotes() : scan->data.getWarnings();
        const auto unsaid = c.agree ? scan->data.getWarnings() : scan->data.getNotes();
        ASSERT_EQ(said.size(), 1U) << c.words;
        EXPECT_NE(said[0].find(c.words), std::string::npos) << said[0];
        EXPECT_TRUE(unsaid.empty()) << c.words;
    }
}

TEST_F(LasTimes, AreAllZeroAfterACancel) {
    std::vector<double> times(100000, 8.0);
    times[0] = 7.0;
    for (const int cancelAt : {2, 5}) {  // while checking, while writing
        const auto scan = scanOf(times);
        ASSERT_FALSE(scan->loadTimes());
        const auto old = scan->times;
        const auto watch = std::make_shared<Support::CountingWatch>(cancelAt);
        scan->memory.source.cancel = watch;
        scan->memory.source.progress = watch;
        expectError(scan->loadTimes(), Cancelled, "cancelled");
        EXPECT_GT(watch->told, 0);
        EXPECT_EQ(scan->times->times, std::vector<std::uint64_t>(times.size(), 0)) << cancelAt;
        EXPECT_EQ(scan->times->writes != 0, cancelAt == 5);
    }
}

}  // namespace
