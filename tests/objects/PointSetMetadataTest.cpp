// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <functional>
#include <thread>

#include "Hx/PointSetIntegration.h"
#include "Ovr/Vardex/CorvinStanceScanData.h"

#include "stance/CorvinStancePointSet.h"
#include "support/ScanFakes.h"

namespace Vardex {
namespace {

using Ovr::VardexLib::CorvinMetaData;
using Ovr::VardexLib::CorvinStanceMetaData;

Ovr::VardexLib::CorvinScanData& scanDataOf(const CorvinPointSet& set) {
    return dynamic_cast<Ovr::VardexLib::CorvinScanData&>(set.getIScanData());
}

const Hx::Uuid kSession(*Ovr::uuids::uuid::fromString("01234567-89ab-cdef-0123-456789abcdef"));

struct Setter {
    const char* name;
    std::function<void(CorvinPointSet&)> set;
    std::function<bool(const CorvinMetaData&)> isSet;
};

const Setter kSetters[] = {
    {"model", [](auto& s) { s.setScannerModel(L" H\u00f6hle 2 "); },
     [](auto& m) { return m.ScannerModel() == " H\xC3\xB6hle 2 "; }},
    {"serial number", [](auto& s) { s.setScannerSerialNo(L"s"); },
     [](auto& m) { return m.ScannerSerialNumber() == "s"; }},
    {"firmware", [](auto& s) { s.setScannerFirmware(L"f"); },
     [](auto& m) { return m.ScannerFirmwareVersion() == "f"; }},
    {"software", [](auto& s) { s.setScannerSoftware(L"p"); },
     [](auto& m) { return m.ProcessingSoftwareVersion() == "p"; }},
    {"vendor", [](auto& s) { s.setScannerVendor(L"v"); },
     [](auto& m) { return m.ScannerVendor() == "v"; }},
    {"recording time", [](auto& s) { s.setRecordingTime(-1.25); },
     [](auto& m) { return m.RecordingTime() == -1'250'000; }},
    {"session", [](auto& s) { s.setRecordingSessionId(kSession); },
     [](auto& m) { return m.RecordingSessionID() == "01234567-89ab-cdef-0123-456789abcdef"; }},
};

TEST(PointSetMetadata, EverySetterMarksTheInfoAndWritesItsOwnField) {
    CorvinStancePointSet set(L"scan");
    for (const Setter& setter : kSetters) {
        EXPECT_FALSE(setter.isSet(*scanDataOf(set).getMetaData())) << setter.name;
    }
    for (const char* round : {"new value", "equal value"}) {
        for (const Setter& setter : kSetters) {
            set.setModifiedInfo(false);
            setter.set(set);
            EXPECT_TRUE(set.isModifiedInfo()) << setter.name << ", " << round;
        }
    }
    for (const Setter& setter : kSetters) {
        EXPECT_TRUE(setter.isSet(*scanDataOf(set).getMetaData())) << setter.name;
    }
    set.setRecordingTime(std::nan(""));
    EXPECT_EQ(set.getScanRecordingTime()->getTime(), -1.25);
    EXPECT_EQ(set.getRecordingSessionId(), kSession);
}

TEST(PointSetMetadata, WithoutARecordSettersStillMarkAndGettersGiveDefaults) {
    CorvinStancePointSet set(L"scan");
    scanDataOf(set).setMetaData(nullptr);
    for (const Setter& setter : kSetters) {
        set.setModifiedInfo(false);
        setter.set(set);
        EXPECT_TRUE(set.isModifiedInfo()) << setter.name;
    }
    EXPECT_EQ(set.getScanRecordingTime(), nullptr);
    EXPECT_TRUE(set.getRecordingSessionId().isDefault());
}

TEST(PointSetMetadata, ATextThatIsNoIdentifierGivesTheDefaultOne) {
    CorvinStancePointSet set(L"scan");
    for (const char* text : {"", "no identifier", "01234567-89ab-cdef-0123-456789abcde"}) {
        scanDataOf(set).getMetaData()->RecordingSessionID(text);
        EXPECT_TRUE(set.getRecordingSessionId().isDefault()) << text;
    }
}

TEST(SlamPose, IsKeptValueForValueInTheStationaryRecordAlone) {
    CorvinStancePointSet set(L"scan");
    Tq_1_1::Mat4d<double> pose;
    for (std::size_t i = 0; i < 16; ++i) {
        pose.values[i] = 1.0 / (static_cast<double>(i) + 3.0);
    }
    const auto stationary =
        std::dynamic_pointer_cast<CorvinStanceMetaData>(scanDataOf(set).getMetaData());
    for (const std::shared_ptr<CorvinMetaData>& record :
         {std::shared_ptr<CorvinMetaData>(stationary), std::make_shared<CorvinMetaData>(),
          std::shared_ptr<CorvinMetaData>()}) {
        scanDataOf(set).setMetaData(record);
        set.setModifiedInfo(false);
        set.setSlamPose(pose);
        EXPECT_EQ(set.isModifiedInfo(), record == stationary);
        EXPECT_EQ(set.getSlamPose(),
                  record == stationary ? pose : Tq_1_1::Mat4d<double>::identity());
    }
    EXPECT_EQ(stationary->SlamPose()[13], 1.0 / 16.0);
}

/// An import that is refused the lock refreshes the host's copy while the lock's holder writes.
TEST(PointSetMetadata, MayBeRefreshedWhileAnotherThreadWrites) {
    Testing::CallLog log;
    CorvinStancePointSet set(L"scan");
    const std::string texts[] = {"a model with a long name", "another one, whose name is longer"};
    const auto record = scanDataOf(set).getMetaData();
    record->ScannerModel(texts[0]);
    std::atomic<bool> ended{false};
    std::thread holder([&] {
        for (int round = 0; round < 2000; ++round) {
            record->ScannerModel(texts[round % 2]);
            record->RecordingTime(round);
        }
        ended = true;
    });
    while (!ended) {
        const auto locks = std::make_shared<Testing::FakeLocks>(log);
        locks->refusedLock = 1;
        set.getIntegration()->setPointDataLocks(locks);
        Hx::FileInfo info;
        Hx::AllocMain guard(true, nullptr);
        EXPECT_EQ(set.import(info, guard), Hx::IOMessages::IO_LOCK_NOT_OBTAINED);
        EXPECT_THAT(texts, testing::Contains(set.getCachedMetaData().ScannerModel()));
    }
    holder.join();
}

}  // namespace
}  // namespace Vardex
