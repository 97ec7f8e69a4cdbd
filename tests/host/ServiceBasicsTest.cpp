// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <fstream>
#include <future>
#include <memory>
#include <string>
#include <thread>

#include "Ovr/Errors.h"
#include "Ovr/Locks.h"
#include "Ovr/ScanProject.h"
#include "Ovr/ServiceRegistry.h"
#include "support/MemoryScan.h"

namespace {

using Ovr::IPointDataLocks;

/// Whether another thread gets the write lock within a time [ms].
bool othersGet(IPointDataLocks& locks, int timeout) {
    return std::async(std::launch::async, [&] { return locks.getWriteLock(timeout) != nullptr; })
        .get();
}

TEST(PointDataLocks, AreReentrantOnOneThreadAndHeldUntilTheLastIsGone) {
    const auto locks = Ovr::makePointDataLocks();
    auto first = locks->getWriteLock(5000);
    auto second = locks->getWriteLock(0);
    ASSERT_TRUE(first && second);
    EXPECT_TRUE(first->isValid());
    EXPECT_FALSE(othersGet(*locks, 0));
    first.reset();
    EXPECT_FALSE(othersGet(*locks, 0));
    second.reset();
    EXPECT_TRUE(othersGet(*locks, 0));
}

/// Returns when a thread of this process sleeps.
void waitUntilAsleep(int thread) {
    const std::string file = "/proc/self/task/" + std::to_string(thread) + "/stat";
    for (std::string stat; stat.find(") S") == std::string::npos; std::this_thread::yield()) {
        std::getline(std::ifstream(file), stat);
    }
}

TEST(PointDataLocks, AreHandedOverToWhoeverWaits) {
    const auto locks = Ovr::makePointDataLocks();
    auto held = locks->getWriteLock(0);
    EXPECT_FALSE(othersGet(*locks, -5));
    std::promise<int> thread;
    auto waiting = std::async(std::launch::async, [&] {
        thread.set_value(gettid());
        return locks->getWriteLock(60000) != nullptr;
    });
    waitUntilAsleep(thread.get_future().get());
    held.reset();
    // Whoever is not woken gets the lock as well, but only when its time is up.
    EXPECT_EQ(waiting.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    EXPECT_TRUE(waiting.get());
}

TEST(PointDataLocks, GiveExclusiveAccessOnceAndOnlyForTheirOwnLock) {
    auto locks = Ovr::makePointDataLocks();
    const auto foreign = Ovr::makePointDataLocks()->getWriteLock(0);
    auto lock = locks->getWriteLock(0);
    EXPECT_FALSE(locks->getExclusiveAccess(*foreign));
    auto access = locks->getExclusiveAccess(*lock);
    EXPECT_TRUE(access);
    EXPECT_FALSE(locks->getExclusiveAccess(*lock));
    access.reset();
    access = locks->getExclusiveAccess(*lock);
    EXPECT_TRUE(access);
    locks.reset();  // what was handed out lives on
    access.reset();
    lock.reset();
}

TEST(ScanProject, CountsFromTheNearestHundredOfMetresOnEachAxis) {
    Ovr::ScanProject project;
    EXPECT_FALSE(project.origin());
    const auto origin = project.chooseOrigin({431249.9, -49.9, -150.0});
    EXPECT_EQ(origin, (Tq_1_1::Vec3d<double>(431200.0, 0.0, -200.0)));
    EXPECT_FALSE(std::signbit(origin.y));
    EXPECT_EQ(project.chooseOrigin({431250.0, 0.0, 0.0}), origin);
    EXPECT_EQ(Ovr::ScanProject().chooseOrigin({431250.0, 0.0, 0.0}).x, 431300.0);
}

TEST(Errors, AreOneLineOfPlaceFoundAndExpected) {
    const struct {
        Ovr::Fault fault;
        const char* message;
    } cases[] = {
        {{"room.ptx", "line 12", "'abc'", "a number"},
         "room.ptx: line 12: found 'abc', expected a number"},
        {{"room.ptx", "", "", "more memory"}, "room.ptx: expected more memory"},
        {{"", "byte 7", "x\r\ny\x1B[1m", ""}, "byte 7: found x  y [1m"},
        {{"a\xFF.las", "", "no such file", ""}, "a\xEF\xBF\xBD.las: found no such file"},
    };
    for (const auto& c : cases) {
        const auto error = Ovr::makeError(Ovr::Interfaces::ErrorCode::InvalidValue, c.fault);
        EXPECT_EQ(error->message(), c.message);
        EXPECT_EQ(error->code(), Ovr::Interfaces::ErrorCode::InvalidValue);
    }
}

}  // namespace
