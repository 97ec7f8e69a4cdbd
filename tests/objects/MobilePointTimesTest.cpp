// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "Hx/PointSetIntegration.h"

#include "mobile/CorvinMobilePointSet.h"
#include "support/FakeFormat.h"
#include "support/MemoryScan.h"
#include "support/ScanFakes.h"

namespace Vardex::Testing {
namespace {

using namespace Hx::IOMessages;
using enum PointRecordLayout;
using Ovr::VardexLib::IScanPointTimes;
using testing::ElementsAre;

using LoadTimes = std::function<Ovr::ErrorPtr(IScanPointTimes&)>;

/// A mobile scan in a file whose times come from a function, with logged locks and scopes.
class MobilePointTimes : public testing::Test, Ovr::DataStructures::IModificationListener {
  protected:
    MobilePointTimes() {
        set->setFileInfo({L"walk.fake", {}});
        set->getIntegration()->setPointDataLocks(locks);
        set->getIntegration()->addModificationListener(this);
    }
    /// 2 x 3 points; point i has the reflection 100 + i.
    void fill(bool withReflection) {
        ASSERT_TRUE(set->resizePointStorage(2, 3, true, withReflection));
        ASSERT_EQ(set->validateData(), IO_OK);
        for (int i = 0; i < 6; ++i) {
            set->setReflection(i / 3, i % 3, static_cast<unsigned short>(100 + i));
        }
    }
    /// The reflections of all points, whose order tells which point is where.
    std::vector<int> reflections() {
        std::vector<int> values(6);
        for (int i = 0; i < 6; ++i) {
            values[static_cast<std::size_t>(i)] = set->getReflection(i / 3, i % 3);
        }
        return values;
    }
    /// -1 for no time.
    double timeAt(int row, int col) {
        double seconds = 5.0;
        const bool known = set->getScanPtTime(row, col, seconds);
        EXPECT_TRUE(known || seconds == 0.0);
        return known ? seconds : -1.0;
    }
    Ovr::ServiceRegistry& services() { return set->getMobileScanData().getServiceRegistry(); }
    CallLog takeLog() { return std::exchange(log, {}); }

    void modificationBegun(const Ovr::DataStructures::ScanDataModification&) override {
        log.push_back("scope");
    }
    void modificationEnded(const Ovr::DataStructures::ScanDataModification&) override {
        log.push_back("scope closed");
    }

    CallLog log;
    Support::FakeFormat format{"fake", {nullptr, [this](const Ovr::TimeTarget& target) {
                                            log.push_back("load");
                                            return loadTimes(target.times);
                                        }}};
    LoadTimes loadTimes = [](IScanPointTimes& times) {
        times.setTimeStamp(1, 2, (std::uint64_t{1} << 32) + 1500000);
        return nullptr;
    };
    std::shared_ptr<FakeLocks> locks = std::make_shared<FakeLocks>(log);
    std::shared_ptr<CorvinMobilePointSet> set = std::make_shared<CorvinMobilePointSet>(L"walk");
};

const std::vector<int> kInOrder = {100, 101, 102, 103, 104, 105};

TEST_F(MobilePointTimes, LoadAndUnloadTakeAndReleaseInOrder) {
    fill(true);
    EXPECT_EQ(set->loadScanPtTimes(), IO_OK);
    EXPECT_THAT(takeLog(),
                ElementsAre("lock 1", "lock 2", "lock 2 released", "access with lock 1", "scope",
                            "load", "scope closed", "access released", "lock 1 released"));
    EXPECT_EQ(reflections(), kInOrder);
    EXPECT_EQ(timeAt(1, 2), 1.5) << "modulo 2^32 us";

    EXPECT_EQ(set->unloadScanPtTimes(), IO_OK);
    EXPECT_THAT(takeLog(), ElementsAre("lock 3", "access with lock 3", "scope", "scope closed",
                                       "access released", "lock 3 released"));
    EXPECT_EQ(timeAt(1, 2), 0.0);
    EXPECT_EQ(set->getRecordLayout(), WithReflectionAndTime);
}

TEST_F(MobilePointTimes, EveryFailureReleasesWhatWasTaken) {
    EXPECT_EQ(set->loadScanPtTimes(), 248) << "no points";
    EXPECT_THAT(takeLog(),
                ElementsAre("lock 1", "access with lock 1", "access released", "lock 1 released"));
    EXPECT_EQ(set->enableTimeStamps(false), IO_OK);
    fill(false);
    locks->refusedLock = 3;
    EXPECT_EQ(set->loadScanPtTimes(), 32769);
    EXPECT_THAT(takeLog(), ElementsAre("lock 2", "lock 3 refused", "lock 2 released"));
    EXPECT_EQ(set->getRecordLayout(), Plain);
    EXPECT_TRUE(set->areTimeStampsEnabled()) << "noted before the lock";
    locks->refuseAccess = true;
    EXPECT_EQ(set->loadScanPtTimes(), 32769);
    EXPECT_THAT(takeLog(), ElementsAre("lock 4", "lock 5", "lock 5 released", "access refused",
                                       "lock 4 released"));
    EXPECT_EQ(set->getRecordLayout(), WithTime) << "converted before the access";
    EXPECT_EQ(set->unloadScanPtTimes(), 32769);
    EXPECT_THAT(takeLog(), ElementsAre("lock 6", "access refused", "lock 6 released"));
    EXPECT_EQ(services().getService<IScanPointTimes>(), nullptr) << "nobody came to need it";
    locks->refuseAccess = false;
    loadTimes = [this](IScanPointTimes&) {
        return std::make_unique<LoggedError>(log, Ovr::Interfaces::ErrorCode::NoTimes);
    };
    EXPECT_EQ(set->loadScanPtTimes(), IO_NO_TIMES_IN_FILE);
    EXPECT_THAT(takeLog(),
                ElementsAre("lock 7", "access with lock 7", "scope", "load", "error released",
                            "scope closed", "access released", "lock 7 released"));
    loadTimes = [](IScanPointTimes&) -> Ovr::ErrorPtr { throw std::runtime_error("thrown"); };
    EXPECT_THROW(static_cast<void>(set->loadScanPtTimes()), std::runtime_error);
    EXPECT_THAT(takeLog(), ElementsAre("lock 8", "access with lock 8", "scope", "load",
                                       "scope closed", "access released", "lock 8 released"));
}

TEST_F(MobilePointTimes, EnablingConvertsOnce) {
    ASSERT_TRUE(set->resizePointStorage(2, 3, true, true));
    EXPECT_EQ(set->enableTimeStamps(true), IO_OK);
    EXPECT_EQ(set->getRecordLayout(), WithReflection) << "data not valid";
    EXPECT_EQ(set->enableTimeStamps(false), IO_OK);
    for (const bool separate : {true, false}) {
        fill(separate);
        EXPECT_EQ(set->enableTimeStamps(true), IO_OK);
        EXPECT_EQ(set->getRecordLayout(), separate ? WithReflectionAndTime : WithTime);
        set->setScanPtTime(0, 1, 2.5);
        EXPECT_EQ(set->enableTimeStamps(true), IO_OK);
        EXPECT_EQ(set->enableTimeStamps(false), IO_OK);
        EXPECT_EQ(timeAt(0, 1), 2.5);
        EXPECT_EQ(reflections(), kInOrder);
        set->sortScanPointsByTime(set->lockPoints(5000));
        EXPECT_EQ(timeAt(1, 2), 2.5);
    }
    EXPECT_EQ(log.size(), 8U) << "a lock for each conversion and each sort, given back";
    EXPECT_EQ(set->enableTimeStamps(true), IO_OK);
    EXPECT_TRUE(set->resizePointStorage(4, 5, true, true));
    EXPECT_EQ(set->getRecordLayout(), WithReflectionAndTime);
    EXPECT_TRUE(set->resizePointStorage(4, 5, true, false));
    EXPECT_EQ(set->getRecordLayout(), WithTime);
}

TEST_F(MobilePointTimes, AForeignServiceStaysUntilTheSetIsAskedToResize) {
    fill(false);
    const auto foreign = std::make_shared<Support::MemoryTimes>(1);
    services().registerService<IScanPointTimes>(foreign);
    EXPECT_EQ(set->loadScanPtTimes(), IO_OK);
    EXPECT_EQ(set->unloadScanPtTimes(), IO_OK);
    EXPECT_EQ(foreign->writes, 7) << "one from loading, six from dropping";
    EXPECT_FALSE(set->resizeScanPtTimes(3, 3));
    EXPECT_NE(services().getService<IScanPointTimes>(), foreign);
    EXPECT_FALSE(set->resizeScanPtTimes(2, 2));
    EXPECT_TRUE(set->resizeScanPtTimes(2, 3));
}

TEST_F(MobilePointTimes, DroppingLendsTheTimesToTheServiceToo) {
    fill(false);
    EXPECT_EQ(set->enableTimeStamps(true), IO_OK);
    set->setScanPtTime(1, 2, 2.5);
    EXPECT_EQ(set->unloadScanPtTimes(), IO_OK);
    EXPECT_EQ(timeAt(1, 2), 0.0);
}

TEST_F(MobilePointTimes, ADurationNeedsTheMetadataOfAMobileScan) {
    for (const auto& record : {std::make_shared<Ovr::VardexLib::CorvinMetaData>(),
                               std::shared_ptr<Ovr::VardexLib::CorvinMetaData>()}) {
        set->getMobileScanData().setMetaData(record);
        set->setMaxScanPointTime(1.0);
        EXPECT_EQ(set->getMaxScanPointTime(), 1.7976931348623157e308);
    }
}

TEST_F(MobilePointTimes, SingleTimes) {
    fill(true);
    set->setScanPtTime(0, 0, 1.5);
    EXPECT_EQ(timeAt(0, 0), 0.0) << "no time field";
    EXPECT_EQ(set->enableTimeStamps(true), IO_OK);
    for (const auto& [seconds, stored] : {std::pair{1.5, 1.5},
                                          {0.0000004, 0.0},
                                          {0.0000025, 3e-6},
                                          {-0.0000001, 3e-6},
                                          {std::numeric_limits<double>::quiet_NaN(), 3e-6},
                                          {18446744073710.0, 3e-6},
                                          {5000.0, 705.032704},
                                          {4294.967295, 4294967295 * 1e-6}}) {
        set->setScanPtTime(1, 1, seconds);
        EXPECT_EQ(timeAt(1, 1), stored) << seconds;
    }
    for (const auto& [row, col] : {std::pair{-1, 0}, {0, -1}, {2, 0}, {0, 3}}) {
        set->setScanPtTime(row, col, 3.0);
        EXPECT_EQ(timeAt(row, col), -1.0) << row << ' ' << col;
    }
    set->sortScanPointsByTime(set->lockPoints(5000));
    EXPECT_EQ(reflections().back(), 104);
    EXPECT_EQ(timeAt(1, 1), 0.0);
    set->setValidData(false);
    EXPECT_EQ(timeAt(1, 2), -1.0);
}

}  // namespace
}  // namespace Vardex::Testing
