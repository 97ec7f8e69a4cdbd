// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// A host that uses oneTBB for work of its own. Each case was a crash or an endless wait of a sort
// that ended the scheduler.

#include <gtest/gtest.h>
#include <oneapi/tbb/global_control.h>
#include <oneapi/tbb/parallel_for.h>
#include <oneapi/tbb/task_arena.h>
#include <oneapi/tbb/task_group.h>
#include <oneapi/tbb/task_scheduler_observer.h>

#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include "faults/sort/ShuffledScan.h"

namespace SortFaults {
namespace {

constexpr int kSizes[] = {kFewPoints, kManyPoints};

/// Waits for a condition of another thread. @return false when it did not come true in time
bool waitFor(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return condition();
}

/// A host with at least three workers, also on a machine with one core.
class BusyHost : public testing::Test {
  protected:
    static void expectWorking() {
        std::atomic<int> sum{0};
        oneapi::tbb::parallel_for(0, 1000, [&sum](int i) { sum += i; });
        EXPECT_EQ(sum, 499500);
    }

    oneapi::tbb::global_control workers_{oneapi::tbb::global_control::max_allowed_parallelism, 4};
};

TEST_F(BusyHost, MaySortInsideAnArena) {
    oneapi::tbb::task_arena arena(4);
    for (const int points : kSizes) {
        ShuffledScan scan(points);
        arena.execute([&scan] { scan.sort(); });
        EXPECT_TRUE(scan.isSorted()) << points;
        ShuffledScan another(points);
        std::thread([&] { arena.execute([&another] { another.sort(); }); }).join();
        EXPECT_TRUE(another.isSorted()) << points << ", on another thread";
    }
    expectWorking();
}

TEST_F(BusyHost, MaySortWhileTasksOfTheSameThreadWaitForWhatComesAfterIt) {
    for (const int points : kSizes) {
        ShuffledScan scan(points);
        std::atomic<bool> begun{false};
        std::atomic<bool> sorted{false};
        std::atomic<bool> heard{false};
        oneapi::tbb::task_group tasks;
        tasks.run([&] {
            begun = true;
            heard = waitFor([&sorted] { return sorted.load(); });
        });
        ASSERT_TRUE(waitFor([&begun] { return begun.load(); }));
        scan.sort();
        sorted = true;
        tasks.wait();
        EXPECT_TRUE(heard) << points;
        EXPECT_TRUE(scan.isSorted()) << points;
    }
}

TEST_F(BusyHost, GivesTheLockToAJobThatWaitsForIt) {
    for (const int points : kSizes) {
        ShuffledScan scan(points);
        std::atomic<bool> begun{false};
        std::atomic<bool> got{false};
        std::atomic<bool> sawOrder{false};
        oneapi::tbb::task_group tasks;
        {
            const Hx::PointWriteLock held = scan.lock();
            tasks.run([&] {
                begun = true;
                const Hx::PointWriteLock lock = scan.lock();
                got = lock.isHeld();
                sawOrder = scan.isSorted();
            });
            ASSERT_TRUE(waitFor([&begun] { return begun.load(); }));
            scan.sort();
        }
        tasks.wait();
        EXPECT_TRUE(got) << points;
        EXPECT_TRUE(sawOrder) << points;
    }
}

TEST_F(BusyHost, MaySortInAJobWhoseThreadHasEnded) {
    for (const int points : kSizes) {
        ShuffledScan scan(points);
        std::atomic<bool> ended{false};
        std::atomic<bool> sorted{false};
        std::thread([&] {
            oneapi::tbb::this_task_arena::enqueue([&] {
                waitFor([&ended] { return ended.load(); });
                scan.sort();
                sorted = true;
            });
        }).join();
        ended = true;
        ASSERT_TRUE(waitFor([&sorted] { return sorted.load(); })) << points;
        EXPECT_TRUE(scan.isSorted()) << points;
    }
}

/// Counts the workers that come.
class Arrivals final : public oneapi::tbb::task_scheduler_observer {
  public:
    Arrivals() { observe(true); }
    ~Arrivals() override { observe(false); }
    void on_scheduler_entry(bool isWorker) override { count += isWorker; }

    std::atomic<int> count{0};
};

std::atomic<int> localsEnded{0};

/// What a host keeps for each of its workers.
struct WorkerLocal {
    bool used = false;
    ~WorkerLocal() { localsEnded += used; }
};

TEST_F(BusyHost, KeepsItsObserversAndWhatItsWorkersHold) {
    Arrivals arrivals;
    const auto someoneComes = [&arrivals] {
        const int before = arrivals.count;
        return waitFor([&] {
            oneapi::tbb::parallel_for(0, 8, [](int) {
                thread_local WorkerLocal local;
                local.used = true;
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            });
            return arrivals.count > before;
        });
    };
    ASSERT_TRUE(someoneComes());
    for (const int points : kSizes) {
        ShuffledScan scan(points);
        scan.sort();
        EXPECT_EQ(localsEnded, 0) << points;
        EXPECT_TRUE(someoneComes()) << points;
    }
}

TEST_F(BusyHost, SeesNoJobOfItsOwnRunOnTheSortingThread) {
    for (const int points : kSizes) {
        ShuffledScan scan(points);
        std::atomic<bool> sorting{false};
        std::atomic<int> strangers{0};
        const std::thread::id sorter = std::this_thread::get_id();
        oneapi::tbb::task_group tasks;
        const auto job = [&] {
            strangers += sorting && std::this_thread::get_id() == sorter;
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        };
        sorting = true;
        for (int i = 0; i < 2000; ++i) {
            tasks.run(job);
            oneapi::tbb::this_task_arena::enqueue(tasks.defer(job));
        }
        scan.sort();
        sorting = false;
        tasks.wait();
        EXPECT_EQ(strangers, 0) << points;
    }
}

TEST_F(BusyHost, MaySortSeveralScansAtOnce) {
    std::array<ShuffledScan, 4> scans{ShuffledScan(kManyPoints / 5), ShuffledScan(kManyPoints / 5),
                                      ShuffledScan(kManyPoints / 5), ShuffledScan(kManyPoints / 5)};
    oneapi::tbb::parallel_for(0, 4, [&](int i) { scans[static_cast<std::size_t>(i)].sort(); });
    for (ShuffledScan& scan : scans) {
        EXPECT_TRUE(scan.isSorted());
    }
}

}  // namespace
}  // namespace SortFaults
