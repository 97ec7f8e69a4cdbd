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

/// During its life one `new` of this thread throws std::bad_alloc, or all from that one on.
/// One at a time on a thread.
class AllocationFault {
  public:
    /// @param number   which `new` fails first, from 1
    /// @param lasting  whether all later ones fail too
    AllocationFault(std::size_t number, bool lasting);
    ~AllocationFault();
    AllocationFault(const AllocationFault&) = delete;
    AllocationFault& operator=(const AllocationFault&) = delete;

    /// Whether a `new` has failed so far.
    static bool hasFired();
};

/// What all threads have taken with `new` and not given back.
std::ptrdiff_t liveAllocations();

}  // namespace Vardex::Testing
