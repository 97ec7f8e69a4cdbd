// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <memory>
#include <numbers>
#include <string>
#include <thread>
#include <utility>

#include "Hx/IScanPointTimes.h"
#include "Hx/ModuleInitInfo.h"
#include "Platform/ExtensionModule.h"
#include "Platform/LibraryLoader.h"
#include "Tq/HxClass.h"

#include "load/TinyFormat.h"
#include "support/AllocationLimit.h"
#include "support/HostRegistries.h"

namespace LoadTests {
namespace {

using Platform::LoadedLibrary;
using Support::FactoryChange;
using Support::ForeignEntries;
using Support::HostRegistries;
using Support::PickyFactory;
using Tq_1_1::String;

const std::filesystem::path kModule = VARDEX_MODULE_FILE;

std::unique_ptr<LoadedLibrary> openModule() {
    std::string error;
    auto library = LoadedLibrary::open(kModule, error);
    EXPECT_NE(library, nullptr) << error;
    return library;
}

/// What a module leaves nothing of when it is gone.
void expectNoTrace(const char* name, const HostRegistries& before) {
    EXPECT_EQ(HostRegistries::now(), before) << name;
    EXPECT_EQ(Platform::extensionModuleCount(), 0) << name;
    EXPECT_FALSE(LoadedLibrary::isMapped(kModule)) << name;
    for (const Tq_1_1::HxClass* record : Tq_1_1::HxClass::all()) {
        EXPECT_EQ(&record->getModule(), &Tq_1_1::hostModule()) << name;
    }
}

TEST(EntryPoints, GiveVersionAndNameAndAskForAnApplication) {
    const auto library = openModule();
    int version[4] = {};
    library->function<Hx::HxGetVersionFunction>("HxGetVersion")(&version[0], &version[1],
                                                                &version[2], &version[3]);
    EXPECT_THAT(version, testing::ElementsAre(13, 2, 0, 14634));

    auto* const init = library->function<Hx::HxInitFunction>("HxInit");
    for (const String& before : {String::NIL, String::EMPTY, String(L"Another")}) {
        const auto info = std::make_shared<Hx::ModuleInitInfo>();
        info->hostReserved = 0x0123456789ABCDEF;
        info->moduleName = before;
        EXPECT_EQ(init(info), 1);
        EXPECT_EQ(info->moduleName, String(L"VardexScandata"));
        EXPECT_EQ(info->hostReserved, 0x0123456789ABCDEFU);
        EXPECT_EQ(info.use_count(), 1);
    }
    auto* const postInit = library->function<Hx::QuorvaPostInitFunction>("QuorvaPostInit");
    EXPECT_EQ(postInit(nullptr), -1);
    const auto application = std::make_shared<int>(5);
    EXPECT_EQ(postInit(application), 1);
    EXPECT_EQ(application.use_count(), 1);
}

TEST(Exports, AreThePublicClassesAndNothingElse) {
    const auto library = openModule();
    EXPECT_NE(library->find("_ZN6Vardex13VardexDataObj5ClassEv"), nullptr);
    for (const char* name :
         {"_ZN6Vardex4loadEPv", "_ZN6Vardex9theModuleEv", "_ZN6Vardex11registerAllEv"}) {
        EXPECT_EQ(library->find(name), nullptr) << name;
    }
}

/// The host's answer for a point set's class.
template <typename List>
auto* answerOf(const List& list, const Hx::PointSet& pointSet) {
    auto* const function = list.find(pointSet.getClassType());
    EXPECT_NE(function, nullptr);
    return function;
}

std::shared_ptr<Hx::PointSet> importScan(const wchar_t* identifier) {
    auto pointSet = Hx::Models::the().getPointSetFactory()->create(identifier);
    if (pointSet == nullptr) {
        ADD_FAILURE() << "not created";
        return nullptr;
    }
    Hx::FileInfo info;
    info.path = L"somewhere/walk.tiny";
    Hx::AllocMain guard(true, nullptr);
    EXPECT_EQ(pointSet->import(info, guard), 0);
    EXPECT_EQ(pointSet->getNumLoadedPoints(), static_cast<std::uint64_t>(TinyFormat::kPoints));
    EXPECT_EQ(pointSet->getId(), String(L"walk.tiny"));
    return pointSet;
}

/// Loads the times of a mobile scan and sorts it by them. Point, reflection and time stay together.
void useMobileScan(const LoadedLibrary& library) {
    const auto pointSet = importScan(L"Vardex.CorvinMobileScan");
    ASSERT_NE(pointSet, nullptr);
    const auto times =
        answerOf(Hx::IScanPointTimes::Operations::hasScanPointTimes, *pointSet)(pointSet);
    ASSERT_NE(times, nullptr);
    ASSERT_EQ(times->loadScanPtTimes(), 0);

    // The host of this program has no headers of the module: it finds the sort by its symbol.
    auto* const sort = library.function<void(Hx::OvrPointSet*, const Hx::PointWriteLock&)>(
        "_ZN6Vardex20CorvinMobilePointSet20sortScanPointsByTimeERKN2Hx14PointWriteLockE");
    ASSERT_NE(sort, nullptr);
    auto& ovrPointSet = dynamic_cast<Hx::OvrPointSet&>(*pointSet);
    sort(&ovrPointSet, ovrPointSet.lockPoints(1000));
    int misplaced = 0;
    for (int col = 0; col < TinyFormat::kPoints; ++col) {
        double seconds = 0.0;
        times->getScanPtTime(0, col, seconds);
        misplaced +=
            std::lround(seconds * 1e6) != col || std::lround(pointSet->getScanPt(0, col).x) != col;
    }
    EXPECT_EQ(misplaced, 0);
}

/// The polar value of a point of a stationary scan, in the scanner's convention.
void useStationaryScan() {
    const auto pointSet = importScan(L"Vardex.CorvinStanceScan");
    ASSERT_NE(pointSet, nullptr);
    EXPECT_TRUE(
        answerOf(Hx::SphericalCoordinateEstimation::Operations::hasReliableSphericalEstimation,
                 *pointSet)());
    const auto polar = answerOf(Hx::getScanPolarFactory<double>().createFromCartesian,
                                *pointSet)({0.0, -2.0, 0.0});
    EXPECT_EQ(polar->x, 2.0);
    EXPECT_DOUBLE_EQ(polar->y, std::numbers::pi / 2);
}

TEST(Module, CanBeLoadedUsedAndUnloadedAgainAndAgain) {
    const ForeignEntries foreign;
    const TinyFormat format;
    ASSERT_TRUE(format.isRegistered());
    const HostRegistries before = HostRegistries::now();
    for (int round = 1; round <= 30; ++round) {
        const std::size_t hostClasses = Tq_1_1::HxClass::all().size();
        {
            const auto library = openModule();
            ASSERT_NE(library, nullptr) << round;
            EXPECT_TRUE(LoadedLibrary::isMapped(kModule)) << round;
            EXPECT_GT(Tq_1_1::HxClass::all().size(), hostClasses) << round;
            EXPECT_FALSE(HostRegistries::now() == before) << round;
            useMobileScan(*library);
            useStationaryScan();
        }
        expectNoTrace("used", before);
    }
#if defined(VARDEX_SCHEDULER_FILE)
    // Its idle threads wait in its code.
    EXPECT_TRUE(LoadedLibrary::isMapped(VARDEX_SCHEDULER_FILE) ||
                std::thread::hardware_concurrency() < 2);
#endif
}

TEST(FailedLoad, SaysWhatIsWrongWithTheFile) {
    EXPECT_EQ(LoadedLibrary::linked(), "");
    const std::pair<const char*, const char*> cases[] = {
        {"none.so", "none.so"},
        {__FILE__, "LoadTest.cpp"},
        {VARDEX_HOST_FILE, "exports no VardexLibraryEntry"},
    };
    for (const auto& [file, words] : cases) {
        std::string error;
        EXPECT_EQ(LoadedLibrary::open(file, error), nullptr) << file;
        EXPECT_NE(error.find(words), std::string::npos) << error;
    }
}

TEST(FailedLoad, LeavesNothingBehind) {
    struct Case {
        const char* name;
        bool accepting;
        bool framework;
        std::shared_ptr<Hx::PointSetFactory> factory;
    };
    const ForeignEntries foreign;
    for (const Case& c : {
             Case{"module refused", false, true, std::make_shared<PickyFactory>(0)},
             Case{"framework not running", true, false, std::make_shared<PickyFactory>(0)},
             Case{"no factory", true, true, nullptr},
             Case{"first registration refused", true, true, std::make_shared<PickyFactory>(1)},
             Case{"second registration refused", true, true, std::make_shared<PickyFactory>(2)},
             Case{"first registration throws", true, true,
                  std::make_shared<PickyFactory>(1, PickyFactory::Manner::Throws)},
             Case{"second registration throws", true, true,
                  std::make_shared<PickyFactory>(2, PickyFactory::Manner::Throws)},
             Case{"first refused, unregistering throws", true, true,
                  std::make_shared<PickyFactory>(1, PickyFactory::Manner::ThrowsWhenLeft)},
         }) {
        const FactoryChange change(c.factory);
        const HostRegistries before = HostRegistries::now();
        Tq_1_1::Module::setAccepting(c.accepting);
        Platform::setGuiFrameworkRunning(c.framework);
        std::string error;
        EXPECT_EQ(LoadedLibrary::open(kModule, error), nullptr) << c.name;
        Tq_1_1::Module::setAccepting(true);
        Platform::setGuiFrameworkRunning(true);
        EXPECT_NE(error.find("refused to load"), std::string::npos) << error;
        expectNoTrace(c.name, before);
    }
    EXPECT_NE(openModule(), nullptr);
}

TEST(Unloading, RunsEveryStepWhateverTheHostDoes) {
    const ForeignEntries foreign;
    const FactoryChange change(
        std::make_shared<PickyFactory>(0, PickyFactory::Manner::ThrowsWhenLeft));
    const HostRegistries before = HostRegistries::now();
    openModule();
    expectNoTrace("factory throws", before);
}

TEST(Unloading, NeedsNoMemory) {
    const ForeignEntries foreign;
    const HostRegistries before = HostRegistries::now();
    for (const bool complete : {true, false}) {
        const char* name = complete ? "after a load" : "after an early failure";
        void* const library = dlopen(kModule.c_str(), RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(library, nullptr);
        const auto entry =
            reinterpret_cast<Platform::LibraryEntry>(dlsym(library, Platform::kLibraryEntryName));
        Tq_1_1::Module::setAccepting(complete);
        EXPECT_EQ(entry(library, static_cast<int>(Platform::EntryReason::ProcessAttach)),
                  complete ? 1 : 0);
        Tq_1_1::Module::setAccepting(true);
        {
            const Vardex::Testing::AllocationFault everyOne(1, true);
            const int result =
                entry(library, static_cast<int>(Platform::EntryReason::ProcessDetach));
            EXPECT_TRUE(result == 1 && !everyOne.hasFired()) << name;
        }
        dlclose(library);
        expectNoTrace(name, before);
    }
}

}  // namespace
}  // namespace LoadTests
