// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "mobile/core/TimeSort.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <numeric>
#include <random>

namespace Vardex {
namespace {

using Times = std::vector<std::uint32_t>;
constexpr std::size_t kCount = 200000;

Times randomTimes(std::size_t count) {
    std::mt19937 generator(7);
    Times times(count);
    std::generate(times.begin(), times.end(), [&] { return std::uint32_t(generator()); });
    return times;
}

/// The largest times there are, in order; then every 50th swapped, or all moved by some places.
Times ascendingTimes(std::size_t count, std::size_t swapDistance, std::size_t rotation) {
    Times times(count);
    std::iota(times.begin(), times.end(), 4294967295U - static_cast<std::uint32_t>(count) + 1U);
    for (std::size_t i = 0; i + swapDistance < count; i += 50) {
        std::swap(times[i], times[i + swapDistance]);
    }
    std::rotate(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(rotation), times.end());
    return times;
}

Times timesBelow(std::uint32_t limit) {
    Times times = randomTimes(kCount);
    std::for_each(times.begin(), times.end(), [limit](std::uint32_t& time) { time %= limit; });
    return times;
}

Times oneFarLater() {
    Times times = timesBelow(70000);
    times[kCount / 3] = 4294967295U;
    return times;
}

/// Sorts records that know their own number and compares them with the times they started with.
/// @param prepare  called directly before the sort
template <typename Record>
void expectSorted(
    const char* name, PointRecordLayout layout, const Times& times, void (*prepare)() = [] {}) {
    PointRecordStore store;
    store.resetRecords(1, static_cast<std::uint32_t>(times.size()), layout);
    const auto records = store.records<Record>();
    for (std::size_t i = 0; i < records.size(); ++i) {
        records[i].time = times[i];
        records[i].point.x = static_cast<float>(i);
    }
    prepare();
    TimeSort::sortByTime(store);
    std::vector<bool> seen(times.size(), false);
    for (std::size_t i = 0; i < records.size(); ++i) {
        const auto number = static_cast<std::size_t>(records[i].point.x);
        ASSERT_FALSE(seen[number]) << name << ": record " << number << " came twice";
        seen[number] = true;
        ASSERT_EQ(times[number], std::uint32_t{records[i].time}) << name;
        ASSERT_LE(std::uint32_t{records[i == 0 ? 0 : i - 1].time}, times[number]) << name;
    }
}

TEST(TimeSort, OrdersWholeRecords) {
    const std::pair<const char*, Times> cases[] = {
        {"none", {}},
        {"largest time", {4294967295, 0, 2147483648, 2147483647}},
        {"random", randomTimes(kCount)},
        {"four times", timesBelow(4)},
        {"one far later", oneFarLater()},
        {"in order", ascendingTimes(kCount, 0, 0)},
        {"swapped near by", ascendingTimes(kCount, 40, 0)},
        {"first comes last", ascendingTimes(kCount, 0, 1)},
        {"last comes first", ascendingTimes(kCount, 0, kCount - 1)},
        {"too much for one pass", ascendingTimes(kCount, 0, 2000)},
        {"all equal", Times(kCount, 9)}};
    for (const auto& [name, times] : cases) {
        expectSorted<TimeRecord>(name, PointRecordLayout::WithTime, times);
        expectSorted<ReflectionTimeRecord>(name, PointRecordLayout::WithReflectionAndTime, times);
    }
}

/// Leaves room for the spare records of the merge sort, but not for its threads.
void limitAddressSpace() {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlimit limit{pages * static_cast<rlim_t>(getpagesize()) + 11000000, RLIM_INFINITY};
    ASSERT_EQ(setrlimit(RLIMIT_AS, &limit), 0);
}

TEST(TimeSortThreads, AreLeftAloneWhenMemoryIsShort) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "sanitizers need the address space";
#endif
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // a process with nothing spare of its own
    const auto sortAndExit = [] {
        expectSorted<TimeRecord>("random", PointRecordLayout::WithTime, randomTimes(kCount),
                                 limitAddressSpace);
        std::_Exit(testing::Test::HasFailure() ? 1 : 0);
    };
    EXPECT_EXIT(sortAndExit(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace Vardex
