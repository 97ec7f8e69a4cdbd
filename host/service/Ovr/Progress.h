// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"

namespace Ovr::DataStructures {

/// Hears how far long work has come.
class HOST_EXPORT IProgress {
  public:
    virtual ~IProgress();

    /// @param fraction  0 to 1, never falling; called at most a few hundred times per task, on the
    ///                  thread that does the work
    virtual void setFraction(double fraction) = 0;
};

/// Says whether long work should stop.
class HOST_EXPORT ICancelInfo {
  public:
    virtual ~ICancelInfo();

    /// Threads: any.
    virtual bool isCancelled() const = 0;
};

/// Who hears of long work, and who may end it. Both may be null; they outlive the work.
struct Work {
    IProgress* progress = nullptr;
    const ICancelInfo* cancel = nullptr;
};

}  // namespace Ovr::DataStructures
