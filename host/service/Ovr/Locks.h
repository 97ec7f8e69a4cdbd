// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "HostExport.h"

namespace Ovr {

/// The right to write a scan's points. Released by destroying it, on the thread that took it.
class HOST_EXPORT IPointDataWriteLock {
  public:
    virtual ~IPointDataWriteLock();

    /// False when the lock was given but does not protect anything (the scan is being closed).
    virtual bool isValid() const = 0;
};

/// The right to be the only one who touches a scan's points. Released by destroying it, before
/// the write lock it was given for.
class HOST_EXPORT IPointDataExclusiveAccess {
  public:
    virtual ~IPointDataExclusiveAccess();
};

/// Hands out the locks of one scan.
class HOST_EXPORT IPointDataLocks {
  public:
    virtual ~IPointDataLocks();

    /// @param timeout  longest wait [ms]
    /// @return empty when another thread holds the lock for longer. Re-entrant on one thread.
    virtual std::unique_ptr<IPointDataWriteLock> getWriteLock(int timeout) = 0;

    /// @return empty when exclusive access is out already, or when @p lock is not valid or not of
    ///         this scan
    virtual std::unique_ptr<IPointDataExclusiveAccess> getExclusiveAccess(
        const IPointDataWriteLock& lock) = 0;
};

/// The locks of one scan, on a re-entrant timed mutex. The locks handed out keep what
/// they need alive and may outlive this object.
HOST_EXPORT std::shared_ptr<IPointDataLocks> makePointDataLocks();

}  // namespace Ovr
