// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <atomic>
#include <functional>
#include <latch>
#include <stdexcept>
#include <thread>

#include "Hx/PointSetIntegration.h"

#include "faults/ScanRig.h"

namespace Vardex::Testing {
namespace {

constexpr int kRounds = 200;

/// Runs all at once, each on a thread of its own, and waits for all.
void together(const std::vector<std::function<void()>>& works) {
    std::latch start(static_cast<std::ptrdiff_t>(works.size()));
    std::vector<std::jthread> threads;
    threads.reserve(works.size());
    for (const auto& work : works) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            work();
        });
    }
}

/// Everything that reads a point, by every kind of address.
std::uint64_t readAll(const CorvinMobilePointSet& set) {
    std::uint64_t sum = 0;
    for (std::uint64_t index = 0; index < set.getNumPoints(); ++index) {
        const Hx::SelectItem item = set.getSelectItem(index);
        const auto colRow = set.getColRow(item);
        const int row = colRow.second;
        const int col = colRow.first;
        Hx::SelectItem same;
        set.getSelectItem(row, col, same);
        CorvinPointSet::ScanPt point;
        set.getScanPt(item, point);
        double seconds = 0.0;
        sum += set.getScanPtTime(row, col, seconds) ? 1 : 0;
        sum += set.getSelectItem(colRow).index + set.getSelectItem(row, col).index + same.index;
        sum += set.makeSelectItem(row, col).index + set.getNumLoadedPoints();
        sum += static_cast<std::uint64_t>(set.getRowCol(item).second + set.getColRow(index).first);
        sum += static_cast<std::uint64_t>(point.x + set.getScanPt(colRow).x +
                                          set.getScanPt(row, col).x + set.getScanPt(index).x +
                                          set.getScanPt(item).x + set.getDistance(item) + seconds);
        sum += set.getColor(row, col)[0] + set.getColor(index)[1] + set.getColor(item)[2];
        sum += set.getReflection(row, col) + set.getReflection(index) + set.getReflection(item);
        sum += static_cast<std::uint64_t>(set.getNormal(row, col) == set.getNormal(index)) +
               static_cast<std::uint64_t>(set.getNormal(item) == set.getNormal(index));
    }
    return sum;
}

TEST(Threads, ReadPointsTimesAndTrajectoryAtOnce) {
    ScanRig rig;
    rig.importWalk(true);
    const CorvinMobilePointSet& set = *rig.walk;
    const std::uint64_t sum = readAll(set);
    const auto read = [&] {
        for (int round = 0; round < kRounds; ++round) {
            EXPECT_EQ(readAll(set), sum);
        }
    };
    const auto ask = [&] {
        for (int round = 0; round < kRounds; ++round) {
            EXPECT_EQ(set.getSelectedTrajectory(Hx::PC2TimeFilter(0.0, 1.0)).size(), 3U);
            double begin = -1.0;
            double end = -1.0;
            const auto all = [](const auto&) { return true; };
            EXPECT_TRUE(set.getTrajectoryFractionAtPoint({0, 2, 3}, all, begin, end));
            EXPECT_EQ(set.getRecordingPositionForTime(2.5)->x, 3.0);
            EXPECT_EQ(set.getScanRecordingTime(), nullptr);
            EXPECT_EQ(set.getReflHistogram(), nullptr);
        }
    };
    together({read, read, ask, ask});
}

TEST(Threads, AskFirstWhileBuildsFail) {
    for (int round = 0; round < kRounds; ++round) {
        ScanRig rig;
        rig.walk->setMaxScanPointTime(2.5);
        constexpr int kFailures = 3;
        std::atomic<int> built{0};
        std::atomic<int> failed{0};
        rig.walk->getIntegration()->setStructuredStreams(
            [&](bool) -> std::shared_ptr<Ovr::IStructuredStreams> {
                if (++built <= kFailures) {
                    throw std::runtime_error("no streams today");
                }
                Ovr::ScanSource source;
                source.file = ScanFiles::the().las;
                return Ovr::findStructuredStreams(source);
            });
        const auto ask = [&] {
            for (bool answered = false; !answered;) {
                try {
                    const auto position = rig.walk->getRecordingPositionForTime(2.5);
                    EXPECT_TRUE(position.has_value() && position->x == 3.0);
                    answered = true;
                } catch (const std::runtime_error&) {
                    ++failed;
                }
            }
        };
        together({ask, ask, ask, ask});
        EXPECT_EQ(failed, kFailures);
        EXPECT_EQ(built, kFailures + 1) << "built once";
    }
}

/// Locks that are refused at once instead of after seconds.
class HastyLocks final : public Ovr::IPointDataLocks {
  public:
    std::unique_ptr<Ovr::IPointDataWriteLock> getWriteLock(int /*timeout*/) override {
        return locks_->getWriteLock(0);
    }
    std::unique_ptr<Ovr::IPointDataExclusiveAccess> getExclusiveAccess(
        const Ovr::IPointDataWriteLock& lock) override {
        return locks_->getExclusiveAccess(lock);
    }

  private:
    std::shared_ptr<Ovr::IPointDataLocks> locks_ = Ovr::makePointDataLocks();
};

TEST(Threads, ContendForTheWriteLock) {
    ScanRig rig;
    CorvinMobilePointSet& set = *rig.walk;
    set.getIntegration()->setPointDataLocks(std::make_shared<HastyLocks>());
    constexpr int kRefused = Hx::IOMessages::IO_LOCK_NOT_OBTAINED;
    constexpr int kNoRecords = Hx::IOMessages::IO_NO_POINT_TIMES;
    std::atomic<int> refused{0};
    const auto repeat = [&](const std::function<int()>& operation) {
        return [&refused, operation] {
            for (int round = 0; round < kRounds; ++round) {
                const int result = operation();
                EXPECT_TRUE(result == 0 || result == kRefused || result == kNoRecords) << result;
                refused += result == kRefused ? 1 : 0;
            }
        };
    };
    const auto import = repeat([&] { return ScanRig::import(set, ScanFiles::the().las); });
    together({
        import,
        import,
        repeat([&] { return set.loadScanPtTimes(); }),
        repeat([&] { return set.unloadScanPtTimes(); }),
        repeat([&] {
            const Hx::PointWriteLock lock = set.lockPoints(0);
            return lock.isHeld() ? static_cast<int>(set.enableTimeStamps(true)) : kRefused;
        }),
        repeat([&] {
            const Hx::PointWriteLock lock = set.lockPoints(0);
            if (lock.isHeld()) {
                set.sortScanPointsByTime(lock);
            }
            return 0;
        }),
    });
    RecordProperty("refused", refused);
    rig.expectFree();
    rig.importWalk(true);
    EXPECT_EQ(rig.answers().at("times"), "0 0.5 1 1.5 2 2.5 ");
}

}  // namespace
}  // namespace Vardex::Testing
