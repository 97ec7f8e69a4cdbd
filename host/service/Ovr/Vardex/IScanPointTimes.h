// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "HostExport.h"
#include "Ovr/IService.h"

namespace Ovr::VardexLib {

/// Takes and gives the times of a scan's points. A point set that keeps times lends this service.
/// Rows and columns are those of the point grid; a time outside it is dropped and reads as 0.
/// Times count from the start of the recording. A point set may keep 32 bits of them, which is why
/// the scan data refuse scans that last longer.
/// Threads: written under the exclusive point-data access; the service itself takes no lock.
class HOST_EXPORT IScanPointTimes : public Interfaces::IService {
  public:
    ~IScanPointTimes() override;

    virtual void setTimeStamp(int row, int col, std::uint64_t microseconds) = 0;
    virtual std::uint64_t getTimeStamp(int row, int col) const = 0;
    /// @return whether the grid has this size already; times are not resized apart from points
    virtual bool resizeTimeStamps(int rows, int cols) = 0;
};

}  // namespace Ovr::VardexLib
