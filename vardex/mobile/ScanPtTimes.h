// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "Ovr/Vardex/IScanPointTimes.h"

#include "mobile/CorvinMobilePointSet.h"

namespace Vardex {

/// Lends the time field of a mobile point set's records to the scan-data service, which fills and
/// clears the times through it. Outside the grid, while the data are not valid, and in records
/// without a time field, times are dropped and read as 0.
///
/// Threads: takes no lock; the caller holds what protects the points. The service calls it while it
/// has exclusive access to them.
class VARDEX_INTERNAL CorvinMobilePointSet::ScanPtTimes final
    : public Ovr::VardexLib::IScanPointTimes {
  public:
    /// @param owner  keeps the times; must outlive every call but the destructor
    explicit ScanPtTimes(CorvinMobilePointSet& owner) : owner_(&owner) {}

    /// Keeps the low 32 bits: times from 4294.967296 s on wrap.
    void setTimeStamp(int row, int col, std::uint64_t microseconds) override;
    std::uint64_t getTimeStamp(int row, int col) const override;
    bool resizeTimeStamps(int rows, int cols) override;

  private:
    CorvinMobilePointSet* owner_;
};

}  // namespace Vardex
