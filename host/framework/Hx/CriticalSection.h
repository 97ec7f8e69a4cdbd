// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <mutex>

namespace Hx {

/// A critical section that one thread may enter repeatedly. Lockable, for std::lock_guard.
class CriticalSection {
  public:
    void lock() { mutex_.lock(); }
    void unlock() { mutex_.unlock(); }

  private:
    std::recursive_mutex mutex_;  // counts how often its owner is inside
};

}  // namespace Hx
