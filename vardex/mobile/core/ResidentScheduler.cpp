// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "mobile/core/ResidentScheduler.h"

#include <dlfcn.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <exception>
#include <new>
#include <thread>
#include <vector>

#include <oneapi/tbb/task_arena.h>
#include <oneapi/tbb/version.h>

namespace Vardex::ResidentScheduler {

namespace {

/// Opens the library once more, as one that is loaded already and is never unloaded. It is found by
/// the file that one of its functions is in, whatever its version and place.
bool keepMapped() {
    static std::atomic<bool> kept{false};
    if (!kept) {
        Dl_info library{};
        if (dladdr(reinterpret_cast<void*>(&TBB_runtime_version), &library) == 0) {
            return false;
        }
        void* const handle = dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
        if (handle == nullptr) {
            return false;
        }
        dlclose(handle);  // the mark stays
        kept = true;
    }
    return true;
}

bool hasMemory(std::size_t workBytes, unsigned threads) {
    constexpr std::size_t kPerThread = std::size_t{16} << 20;
    constexpr std::size_t kForOneTbb = std::size_t{64} << 20;
    const std::size_t needed = workBytes + kForOneTbb + kPerThread * threads;
    void* const probe = ::operator new(needed, std::nothrow);  // a new-expression may be left out
    ::operator delete(probe);
    return probe != nullptr;
}

/// A thread that was joined counts against the limits of the process for a moment longer.
/// @return false when it still did after a long moment
bool waitUntilGone(pid_t thread) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(100);
    while (tgkill(getpid(), thread, 0) == 0) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::yield();
    }
    return true;
}

/// Has so many threads for a moment, all at once.
bool canStart(unsigned threads) {
    std::vector<pid_t> ids;
    std::vector<std::thread> started;
    std::atomic<bool> mayEnd{false};
    bool all = true;
    try {
        ids.resize(threads);
        started.reserve(threads);
        for (pid_t& id : ids) {
            started.emplace_back([&id, &mayEnd] {
                id = gettid();
                mayEnd.wait(false);
            });
        }
    } catch (const std::exception&) {  // neither a thread nor memory is worth an error
        all = false;
    }
    mayEnd = true;
    mayEnd.notify_all();
    for (std::thread& thread : started) {
        thread.join();
    }
    for (std::size_t i = 0; i < started.size(); ++i) {
        all = waitUntilGone(ids[i]) && all;
    }
    return all;
}

}  // namespace

bool isReady(std::size_t workBytes) {
    if (std::thread::hardware_concurrency() < 2 || !keepMapped()) {
        return false;
    }
    const auto threads = static_cast<unsigned>(oneapi::tbb::this_task_arena::max_concurrency());
    return threads > 1 && hasMemory(workBytes, threads) && canStart(threads - 1);
}

}  // namespace Vardex::ResidentScheduler
