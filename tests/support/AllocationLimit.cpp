// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "support/AllocationLimit.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace {

thread_local std::size_t largestAllocation = ~std::size_t{0};

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return size <= largestAllocation ? std::malloc(size == 0 ? 1 : size) : nullptr;
}

void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace Vardex::Testing {

AllocationLimit::AllocationLimit(std::size_t largest)
    : previous_(std::exchange(largestAllocation, largest)) {}

AllocationLimit::~AllocationLimit() {
    largestAllocation = previous_;
}

}  // namespace Vardex::Testing
