// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "faults/ModuleRounds.h"

#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <cmath>
#include <fstream>
#include <iterator>

#include "Hx/RestrictionManager.h"
#include "Platform/ExtensionModule.h"
#include "Tq/BaseNode.h"
#include "support/AllocationLimit.h"
#include "support/FakeFormat.h"
#include "support/HostRegistries.h"

namespace Vardex::Testing {

namespace {

constexpr int kPoints = 20'000;

/// [us]; 7919 and the number of points have no common factor, so each time occurs once.
int timeOf(int col) {
    return static_cast<int>(std::int64_t{col} * 7919 % kPoints);
}

Ovr::ErrorPtr loadPoints(const Ovr::LoadTarget& target, Ovr::StatisticsReport& /*statistics*/) {
    EXPECT_TRUE(target.integration.setNewSize(1, kPoints, true, true));
    Tq_1_1::ScanPtColor<Tq_1_1::Vec3d<float>> point;
    for (int col = 0; col < kPoints; ++col) {
        point.setPosition({static_cast<float>(timeOf(col)), 0.0F, 0.0F});
        target.integration.setPoint(0, col, point);
    }
    return nullptr;
}

Ovr::ErrorPtr loadTimes(const Ovr::TimeTarget& target) {
    for (int col = 0; col < kPoints; ++col) {
        target.times.setTimeStamp(0, col, static_cast<std::uint64_t>(timeOf(col)));
    }
    return nullptr;
}

std::shared_ptr<Hx::OvrPointSet> importScan(const wchar_t* identifier) {
    auto set = std::dynamic_pointer_cast<Hx::OvrPointSet>(
        Hx::Models::the().getPointSetFactory()->create(identifier));
    Hx::FileInfo info;
    info.path = L"somewhere/walk.rows";
    Hx::AllocMain guard(true, nullptr);
    EXPECT_TRUE(set != nullptr && set->import(info, guard) == 0);
    return set;
}

void sortAndCheck(const Platform::LoadedLibrary& library) {
    const auto set = importScan(L"Vardex.CorvinMobileScan");
    const auto times =
        Hx::IScanPointTimes::Operations::hasScanPointTimes.find(set->getClassType())(set);
    ASSERT_EQ(times->loadScanPtTimes(), 0);
    // The host of this program has no headers of the module: it finds the sort by its symbol.
    auto* const sort = library.function<void(Hx::OvrPointSet*, const Hx::PointWriteLock&)>(
        "_ZN6Vardex20CorvinMobilePointSet20sortScanPointsByTimeERKN2Hx14PointWriteLockE");
    ASSERT_NE(sort, nullptr);
    sort(set.get(), set->lockPoints(1000));
    int misplaced = 0;
    for (int col = 0; col < kPoints; ++col) {
        misplaced += std::lround(set->getScanPt(0, col).x) != col;
    }
    EXPECT_EQ(misplaced, 0);
}

void makeDataObject(const Platform::LoadedLibrary& library) {
    const auto manager = std::make_shared<Hx::RestrictionManager>();
    Hx::Application application;
    application.setRestrictionManager(manager);
    Hx::Models::the().setApplication(&application);
    const auto* const key = static_cast<const Tq_1_1::SmartPtr<Hx::Observer>*>(
        library.find("_ZN6Vardex13VardexDataObj16commandFilterKeyE"));
    ASSERT_NE(key, nullptr);
    for (const Tq_1_1::HxClass* type : Tq_1_1::HxClass::all()) {
        if (type->getName() == L"VardexDataObj") {
            const auto* nodes =
                dynamic_cast<const Tq_1_1::CreateableHxClass<Tq_1_1::BaseNode>*>(type);
            EXPECT_EQ(nodes->create()->getClassType(), type);
        }
    }
    EXPECT_EQ(manager->getRegistrationCount(key->get()), 1U);
    manager->removeDenialFunction(key->get());
    EXPECT_EQ(manager->getRegistrationCount(key->get()), 0U);
    Hx::Models::the().setApplication(nullptr);
}

std::size_t entriesOf(const char* folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

}  // namespace

std::filesystem::path moduleFile() {
    return VARDEX_MODULE_FILE;
}

void useModule(const Platform::LoadedLibrary& library) {
    const Support::FakeFormat format("rows", {loadPoints, loadTimes});
    ASSERT_TRUE(format.isRegistered());
    sortAndCheck(library);
    EXPECT_NE(importScan(L"Vardex.CorvinStanceScan"), nullptr);
    makeDataObject(library);
}

Holdings Holdings::now() {
    Holdings held;
    held.allocations = liveAllocations();
    held.mallocBytes = mallinfo2().uordblks;
    held.threads = entriesOf("/proc/self/task");
    held.descriptors = entriesOf("/proc/self/fd");
    std::ifstream maps("/proc/self/maps");
    held.mappings =
        static_cast<std::size_t>(std::count(std::istreambuf_iterator<char>(maps), {}, '\n'));
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    held.residentBytes = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return held;
}

std::vector<std::string> registered() {
    std::vector<std::string> texts;
    Support::forEachOperationList([&texts](const auto& entries) {
        std::string& text = texts.emplace_back();
        for (const auto& [type, function] : entries) {
            text += (type == nullptr ? "all" : type->getName().toUtf8()) + ' ';
        }
    });
    std::string& identifiers = texts.emplace_back();
    for (const auto& identifier : Hx::Models::the().getPointSetFactory()->identifiers()) {
        identifiers += identifier.toUtf8() + ' ';
    }
    texts.push_back(std::to_string(Platform::extensionModuleCount()));
    return texts;
}

}  // namespace Vardex::Testing
