// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// A process that may start no thread, or only a few.

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <system_error>
#include <thread>

#include "faults/sort/ShuffledScan.h"

// The leak sanitizer, in builds that have it, asks these. It needs a thread of its own, which a
// process without threads cannot give; and oneTBB keeps what it has of a host's observers.
extern "C" [[gnu::visibility("default")]] int __lsan_is_turned_off();
extern "C" [[gnu::visibility("default")]] const char* __lsan_default_suppressions();
static bool hasNoThreads = false;
extern "C" int __lsan_is_turned_off() {
    return hasNoThreads ? 1 : 0;
}
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libtbb.so";
}

namespace SortFaults {
namespace {

/// Makes this process the only one of a user, who may have so many threads.
/// @return false when that is not to be had; for one thread it always is, unless by root
bool limitThreads(rlim_t threads) {
    constexpr uid_t kUnused = 1'000'000;
    const bool isRoot = getuid() == 0;
    const uid_t user = kUnused + static_cast<uid_t>(getpid());
    if (isRoot && (setgroups(0, nullptr) != 0 || setuid(user) != 0)) {
        return false;
    }
    const rlimit limit{threads, threads};
    return (isRoot || threads == 1) && setrlimit(RLIMIT_NPROC, &limit) == 0;
}

bool canStartThread() {
    try {
        std::thread([] {}).join();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

constexpr int kSorted = 0;
constexpr int kNotLimited = 42;

/// Sorts in a process with so many threads, and ends it.
[[noreturn]] void sortWith(rlim_t threads) {
    hasNoThreads = true;
    ShuffledScan scan(200'000);
    if (!limitThreads(threads) || canStartThread() != (threads > 1)) {
        std::_Exit(kNotLimited);
    }
    scan.sort();
    std::exit(scan.isSorted() ? kSorted : 1);
}

TEST(FewThreads, AreEnoughToSort) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // a process with no thread but its own
    for (const rlim_t threads : {1, 2, 3, 4, 5, 8}) {
        const auto expected = [](int status) {
            return testing::ExitedWithCode(kSorted)(status) ||
                   (getuid() != 0 && testing::ExitedWithCode(kNotLimited)(status));
        };
        EXPECT_EXIT(sortWith(threads), expected, "") << threads;
    }
}

}  // namespace
}  // namespace SortFaults
