// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "pointset/core/RecordMemory.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace Vardex {

namespace {

// Blocks from this size on come from the C library. Its realloc lets the pages of a block move, and
// its calloc leaves new ones alone, where new must copy and clear. A new page costs more than all
// that is done with its bytes afterwards.
constexpr std::size_t kLarge = std::size_t{1} << 20;

std::byte* orThrow(void* memory) {
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return static_cast<std::byte*>(memory);
}

}  // namespace

RecordMemory::~RecordMemory() {
    if (size_ >= kLarge) {
        std::free(data_);
    } else {
        ::operator delete(data_);
    }
}

RecordMemory RecordMemory::zeros(std::size_t bytes) {
    RecordMemory block;
    if (bytes >= kLarge) {
        block.data_ = orThrow(std::calloc(bytes, 1));
    } else if (bytes > 0) {
        block.data_ = static_cast<std::byte*>(::operator new(bytes));
        std::memset(block.data_, 0, bytes);
    }
    block.size_ = bytes;
    return block;
}

void RecordMemory::resize(std::size_t bytes) {
    if (bytes == size_) {
        return;
    }
    if (size_ >= kLarge && bytes >= kLarge) {
        data_ = orThrow(std::realloc(data_, bytes));
        size_ = bytes;
    } else {
        RecordMemory other = zeros(bytes);
        std::copy_n(data_, std::min(size_, bytes), other.data_);
        swap(other);
    }
}

}  // namespace Vardex
