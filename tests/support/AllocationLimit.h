// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

namespace Vardex::Testing {

/// Lets memory run out: while it lives, every `new` of more than the given number of bytes on this
/// thread throws std::bad_alloc. A program that uses it has the global `new` replaced.
class AllocationLimit {
  public:
    explicit AllocationLimit(std::size_t largest);
    ~AllocationLimit();
    AllocationLimit(const AllocationLimit&) = delete;
    AllocationLimit& operator=(const AllocationLimit&) = delete;

  private:
    std::size_t previous_;
};

}  // namespace Vardex::Testing
