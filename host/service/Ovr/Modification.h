// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"

namespace Ovr::DataStructures {

/// What of a scan's data is about to change.
struct ScanDataModification {
    bool size = false;
    bool positions = false;
    bool normals = false;
    bool colors = false;
    bool reflections = false;
    bool times = false;
    bool metaData = false;
    bool statistics = false;

    friend constexpr bool operator==(const ScanDataModification&,
                                     const ScanDataModification&) = default;
};

/// Hears when a modification of a scan begins and ends.
class HOST_EXPORT IModificationListener {
  public:
    virtual ~IModificationListener();

    virtual void modificationBegun(const ScanDataModification& what) = 0;
    virtual void modificationEnded(const ScanDataModification& what) = 0;
};

/// A stretch of time in which a scan's data change: tells the listener at both ends.
class HOST_EXPORT ScanDataModificationScope {
  public:
    /// @param listener  must outlive the scope
    ScanDataModificationScope(IModificationListener& listener, const ScanDataModification& what);
    ScanDataModificationScope(const ScanDataModificationScope&) = delete;
    ScanDataModificationScope& operator=(const ScanDataModificationScope&) = delete;
    virtual ~ScanDataModificationScope();

  private:
    IModificationListener& listener_;
    ScanDataModification what_;
};

}  // namespace Ovr::DataStructures
