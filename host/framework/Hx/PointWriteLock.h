// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <utility>

#include "Ovr/Locks.h"

namespace Hx {

/// The caller's proof that it holds a point set's write lock.
class PointWriteLock {
  public:
    explicit PointWriteLock(std::unique_ptr<Ovr::IPointDataWriteLock> lock)
        : lock_(std::move(lock)) {}

    /// False when the lock was not obtained.
    bool isHeld() const { return lock_ != nullptr && lock_->isValid(); }

  private:
    std::unique_ptr<Ovr::IPointDataWriteLock> lock_;
};

}  // namespace Hx
