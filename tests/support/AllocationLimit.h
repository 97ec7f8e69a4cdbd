// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

namespace Vardex::Testing {

/// Simulates that memory runs out: during its life every `new` of more than the given number of
/// bytes on this thread throws std::bad_alloc. It replaces the global `new` of the program.
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
