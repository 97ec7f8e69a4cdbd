// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <thread>

#include "faults/ModuleRounds.h"
#include "faults/Sweep.h"

namespace Vardex::Testing {
namespace {

using Platform::EntryReason;
using Platform::LoadedLibrary;

/// The module, opened and not yet attached.
class ModuleRig {
  public:
    ModuleRig()
        : handle_(dlopen(moduleFile().c_str(), RTLD_NOW | RTLD_LOCAL)),
          entry_(reinterpret_cast<Platform::LibraryEntry>(
              dlsym(handle_, Platform::kLibraryEntryName))) {}
    ModuleRig(const ModuleRig&) = delete;
    ModuleRig& operator=(const ModuleRig&) = delete;
    ~ModuleRig() {
        detach();
        EXPECT_EQ(dlclose(handle_), 0);
        EXPECT_FALSE(LoadedLibrary::isMapped(moduleFile()));
    }

    /// As the loader does it: a module that cannot be attached is detached at once.
    bool attach() {
        attached_ = entry_(handle_, static_cast<int>(EntryReason::ProcessAttach)) != 0;
        if (!attached_) {
            entry_(handle_, static_cast<int>(EntryReason::ProcessDetach));
        }
        return attached_;
    }
    void detach() {
        if (attached_) {
            attached_ = false;
            entry_(handle_, static_cast<int>(EntryReason::ProcessDetach));
        }
    }

    static Answers answers() {
        Answers answers;
        for (const std::string& entries : registered()) {
            answers["list " + std::to_string(answers.size())] = entries;
        }
        return answers;
    }
    void expectFree() const {}

  private:
    void* handle_;
    Platform::LibraryEntry entry_;
    bool attached_ = false;
};

TEST(OutOfMemory, LoadingAndUnloadingTheModule) {
    const std::vector<Operation<ModuleRig>> rows = {
        {"load", [](ModuleRig& rig) { succeed(rig.attach()); }},
        {"unload", [](ModuleRig& rig) { rig.detach(); },
         [](ModuleRig& rig) { ASSERT_TRUE(rig.attach()); }},
    };
    std::size_t failed = 0;
    for (const auto& row : rows) {
        failed += Sweep(row).run();
    }
    RecordProperty("allocations_failed", static_cast<int>(failed));
}

/// Rounds of loading, using and unloading; VARDEX_FAULT_ROUNDS asks for more.
int roundCount() {
    const char* const text = std::getenv("VARDEX_FAULT_ROUNDS");
    return text != nullptr ? std::atoi(text) : 50;
}

/// Loads in one thread, uses in two others, unloads in a fourth.
void oneRound() {
    const auto elsewhere = [](const auto& work) {
        return std::async(std::launch::async, work).get();
    };
    auto library = elsewhere([] {
        std::string error;
        auto opened = LoadedLibrary::open(moduleFile(), error);
        EXPECT_NE(opened, nullptr) << error;
        return opened;
    });
    ASSERT_NE(library, nullptr);
    elsewhere([&library] { useModule(*library); });
    elsewhere([&library] { useModule(*library); });
    elsewhere([&library] { library.reset(); });
    EXPECT_FALSE(LoadedLibrary::isMapped(moduleFile()));
}

TEST(ModuleLife, LeavesNothingBehindHoweverOftenItIsLoadedUsedAndUnloaded) {
    constexpr int kWarmUp = 10;
    for (int round = 0; round < kWarmUp; ++round) {
        oneRound();
    }
    const Holdings before = Holdings::now();
    for (int round = 0; round < roundCount() && !HasFailure(); ++round) {
        oneRound();
    }
    Holdings after = Holdings::now();
    // Threads that were joined, and idle helpers of the sort, may need a moment to end.
    for (int wait = 0; after.threads > before.threads && wait < 500; ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        after = Holdings::now();
    }
    EXPECT_EQ(after.allocations, before.allocations);
    EXPECT_LE(after.threads, before.threads);
    EXPECT_EQ(after.descriptors, before.descriptors);
#if !defined(__SANITIZE_ADDRESS__) && \
    !defined(__SANITIZE_THREAD__)  // they keep what was given back
    EXPECT_LE(after.mallocBytes, before.mallocBytes + 10'000);
    EXPECT_LE(after.mappings, before.mappings + 5);
    // Every thread may be given another of the C library's heaps, which keep what was freed last.
    EXPECT_LE(after.residentBytes, before.residentBytes + 16'000'000);
#endif
}

}  // namespace
}  // namespace Vardex::Testing
