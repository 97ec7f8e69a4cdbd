// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <utility>

#include "Hx/ModelContext.h"
#include "Hx/PointSetIntegration.h"

#include "pointset/CorvinPointSet.h"
#include "support/ScanFakes.h"

namespace Vardex::Testing {
namespace {

using testing::ElementsAre;

/// The smallest concrete point set: fake locks, fake scan data, and a log of refreshes of the
/// cached metadata.
class LoggingPointSet final : public CorvinPointSet {
  public:
    explicit LoggingPointSet(CallLog& log)
        : CorvinPointSet(L"logging", std::make_shared<Hx::PointSetIntegration>(*this)),
          locks(std::make_shared<FakeLocks>(log)),
          log_(log) {
        auto owned = std::make_unique<FakeScanData>(log);
        scanData = owned.get();
        getIntegration()->setScanData(std::move(owned));
        getIntegration()->setPointDataLocks(locks);
    }
    void updateCachedMetaData() override { log_.push_back("refresh"); }
    std::shared_ptr<Hx::PointSet> createNewPointSet(int, int,
                                                    const Tq_1_1::String&) const override {
        return nullptr;
    }
    double getHorizontalRange() const override { return 0.0; }
    double getMinHorizontalAngle() const override { return 0.0; }
    double getMaxHorizontalAngle() const override { return 0.0; }
    double getMaxVerticalAngle() const override { return 0.0; }

    std::shared_ptr<FakeLocks> locks;
    FakeScanData* scanData;

  private:
    CallLog& log_;
};

class PointSetImportTest : public testing::Test {
  protected:
    int importFile(const wchar_t* path) {
        Hx::FileInfo info;
        info.path = path;
        Hx::AllocMain alloc(false, {});
        return set->import(info, alloc);
    }

    int importWithLocks(int refused, int invalid) {
        log.clear();
        set->locks->refusedLock = refused;
        set->locks->invalidLock = invalid;
        return importFile(L"/data/site.ovr");
    }

    CallLog log;
    std::shared_ptr<LoggingPointSet> set = std::make_shared<LoggingPointSet>(log);
};

TEST_F(PointSetImportTest, LoadsInsideTheScopeUnderBothLocksAndRefreshesLast) {
    EXPECT_EQ(importFile(L"/data/site.ovr"), 0);
    EXPECT_THAT(log, ElementsAre("lock 1", "lock 2", "scope", "load all with lock 2",
                                 "scope closed", "lock 2 released", "lock 1 released", "refresh"));
    EXPECT_EQ(set->getFileInfo().path, L"/data/site.ovr");
    EXPECT_EQ(set->scanData->modified, (Ovr::DataStructures::ScanDataModification{
                                           true, true, true, true, true, true, true, true}));
    log.clear();
    set->scanData->load = [](Ovr::StatisticsReport&) -> Ovr::ErrorPtr {
        throw std::runtime_error("thrown by the load");
    };
    EXPECT_THROW(importFile(L"/data/site.ovr"), std::runtime_error);
    EXPECT_THAT(log, ElementsAre("lock 3", "lock 4", "scope", "load all with lock 4",
                                 "scope closed", "lock 4 released", "lock 3 released", "refresh"));
}

TEST_F(PointSetImportTest, AFailedLoadIsConvertedUnderTheLocks) {
    set->scanData->load = [this](Ovr::StatisticsReport& report) {
        report.reflection.emplace();
        return std::make_unique<LoggedError>(log, Ovr::Interfaces::ErrorCode::Truncated);
    };
    EXPECT_EQ(importFile(L"/data/site.ovr"), Hx::IOMessages::IO_TRUNCATED);
    EXPECT_THAT(log,
                ElementsAre("lock 1", "lock 2", "scope", "load all with lock 2", "scope closed",
                            "error released", "lock 2 released", "lock 1 released", "refresh"));
    EXPECT_TRUE(set->getId().isNull());
    EXPECT_EQ(set->getReflStat(Hx::ReflStatType::AllPoints), nullptr);
}

TEST_F(PointSetImportTest, WithoutALockNothingIsLoaded) {
    EXPECT_EQ(importWithLocks(1, 0), 32769);
    EXPECT_THAT(log, ElementsAre("lock 1 refused", "refresh"));
    EXPECT_EQ(importWithLocks(0, 2), 32769);
    EXPECT_THAT(log, ElementsAre("lock 2", "lock 2 released", "refresh"));
    EXPECT_TRUE(set->getFileInfo().path.isNull());
    EXPECT_EQ(importWithLocks(4, 0), 1);
    EXPECT_THAT(log, ElementsAre("lock 3", "lock 4 refused", "lock 3 released", "refresh"));
    EXPECT_EQ(set->getFileInfo().path, L"/data/site.ovr") << "kept without the second lock";
    EXPECT_TRUE(set->getId().isNull());
}

TEST_F(PointSetImportTest, ANamelessSetIsNamedAfterTheFile) {
    struct Case {
        const wchar_t* path;
        Tq_1_1::String before;
        int result;
        Tq_1_1::String after;
    };
    for (const Case& c : {
             Case{L"/data/site.ovr", Tq_1_1::String::NIL, 0, L"site"},
             Case{L"/data/site.ovr", L"kept", 0, L"kept"},
             Case{L"/data/site.xyz", Tq_1_1::String::EMPTY, 0, L"site.xyz"},
             Case{L"/data/", Tq_1_1::String::EMPTY, 89, Tq_1_1::String::EMPTY},
             Case{L"/data/", L"kept", 0, L"kept"},
         }) {
        set->setId(c.before);
        EXPECT_EQ(importFile(c.path), c.result) << c.path;
        EXPECT_EQ(set->getId(), c.after) << c.path << ": " << set->getId().toUtf8();
        EXPECT_EQ(log.back(), "refresh");
    }
}

TEST_F(PointSetImportTest, StatisticsAreTakenUnlessValidOnesAreThere) {
    set->scanData->load = [](Ovr::StatisticsReport& report) -> Ovr::ErrorPtr {
        report.reflection = {100.0, 4000.0, 900.0, 12.0, 77};
        report.distance = {0.5, 30.0, 8.0, 2.0, 76};
        return nullptr;
    };
    set->getScanProperties().setDistStatValid(true);
    EXPECT_EQ(importFile(L"a.ovr"), 0);
    const auto* reflection = set->getReflStat(Hx::ReflStatType::AllPoints);
    ASSERT_NE(reflection, nullptr);
    EXPECT_EQ(reflection->minimum, 100.0);
    EXPECT_EQ(reflection->mean, 900.0);
    EXPECT_EQ(reflection->count, 77U);
    EXPECT_TRUE(set->getScanProperties().checkReflStatValid());
    EXPECT_EQ(set->getMaxDisplayReflection(), 4000);
    EXPECT_EQ(set->getDistStat(), nullptr);

    set->getScanProperties().setDistStatValid(false);
    EXPECT_EQ(importFile(L"a.ovr"), 0);
    ASSERT_NE(set->getDistStat(), nullptr);
    EXPECT_EQ(set->getDistStat()->maximum, 30.0);
    EXPECT_EQ(set->getDistStat()->deviation, 2.0);
    EXPECT_FALSE(set->getScanProperties().checkDistStatValid());
}

TEST_F(PointSetImportTest, TheProjectOutputNamesTheScanDataAndTheId) {
    set->setId(L"hall \"2\\1\"");
    std::ostringstream out;
    const auto context = std::make_shared<Hx::WriteContextBase>();
    EXPECT_EQ(set->writeScanDataId(out, context), 0);
    EXPECT_EQ(out.str(), "  Fake.PointSet = \"hall \\\"2\\\\1\\\"\"\n");
    EXPECT_EQ(out.precision(), 8);
    EXPECT_EQ(context->depth, 0);
}

}  // namespace
}  // namespace Vardex::Testing
