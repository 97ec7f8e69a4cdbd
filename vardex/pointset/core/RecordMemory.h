// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <utility>

namespace Vardex {

/// One block of memory, exactly as large as what is kept in it. It can change its size and keep its
/// bytes; a large block then moves with its pages, and no byte is copied.
class RecordMemory {
  public:
    RecordMemory() = default;
    RecordMemory(RecordMemory&& other) noexcept { swap(other); }
    RecordMemory& operator=(RecordMemory&& other) noexcept {
        RecordMemory taken(std::move(other));
        swap(taken);
        return *this;
    }
    ~RecordMemory();

    /// A block of zeros. Those of a large one are not touched: whoever writes them first does it.
    /// @throw std::bad_alloc
    static RecordMemory zeros(std::size_t bytes);

    std::byte* data() const { return data_; }  ///< null without bytes
    std::size_t size() const { return size_; }

    /// Keeps the bytes as far as the new size reaches. What new ones hold is not said.
    /// @throw std::bad_alloc  the block is as it was
    void resize(std::size_t bytes);

  private:
    void swap(RecordMemory& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(size_, other.size_);
    }

    std::byte* data_ = nullptr;
    std::size_t size_ = 0;  // says also where the block came from
};

}  // namespace Vardex
