// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <mutex>

#include "HostExport.h"

namespace Hx {

/// A critical section that one thread may enter repeatedly. Lockable, for std::lock_guard.
class HOST_EXPORT CriticalSection {
  public:
    void lock();
    void unlock();
    /// How often the owning thread is inside. Requires: called by the owner.
    int depth() const { return depth_; }

  private:
    std::recursive_mutex mutex_;
    int depth_ = 0;  // guarded by mutex_
};

}  // namespace Hx
