// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "support/AllocationLimit.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <utility>

namespace {

thread_local std::size_t largestAllocation = ~std::size_t{0};

struct Fault {
    std::size_t countdown = 0;  // allocations up to the one that fails; 0 when none is to fail
    bool lasting = false;
    bool fired = false;
};
thread_local Fault fault;

std::atomic<std::ptrdiff_t> live{0};

bool failsNow() {
    if (fault.countdown == 0 || --fault.countdown != 0) {
        return false;
    }
    fault.fired = true;
    fault.countdown = fault.lasting ? 1 : 0;
    return true;
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    if (size > largestAllocation || failsNow()) {
        return nullptr;
    }
    void* const memory = std::malloc(size == 0 ? 1 : size);
    live += memory != nullptr ? 1 : 0;
    return memory;
}

void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    live -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace Vardex::Testing {

AllocationLimit::AllocationLimit(std::size_t largest)
    : previous_(std::exchange(largestAllocation, largest)) {}

AllocationLimit::~AllocationLimit() {
    largestAllocation = previous_;
}

AllocationFault::AllocationFault(std::size_t number, bool lasting) {
    fault = {number, lasting, false};
}

AllocationFault::~AllocationFault() {
    fault.countdown = 0;
}

bool AllocationFault::hasFired() {
    return fault.fired;
}

std::ptrdiff_t liveAllocations() {
    return live;
}

}  // namespace Vardex::Testing
