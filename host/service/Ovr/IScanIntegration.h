// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>

#include "HostExport.h"
#include "Ovr/IStructuredStreams.h"
#include "Ovr/Locks.h"
#include "Ovr/Modification.h"
#include "Ovr/ScanSource.h"
#include "Tq/SVec2d.h"
#include "Tq/ScanPtColor.h"

namespace Ovr::Interfaces {

/// What scan data ask of the point set they fill. The virtual operations keep their order.
class HOST_EXPORT IScanIntegration : public DataStructures::IModificationListener {
  public:
    ~IScanIntegration() override;

    /// @param timeout  longest wait [ms]
    /// @return empty when the lock could not be had; re-entrant on one thread
    virtual std::unique_ptr<IPointDataWriteLock> getPointDataWriteLock(int timeout) = 0;
    /// @return empty on failure
    virtual std::unique_ptr<IPointDataExclusiveAccess> getPointDataExclusiveAccess(
        const IPointDataWriteLock& lock) = 0;

    /// Sizes the point storage. Requires: the caller holds the write lock.
    /// @param allocate        false only sets the counts and drops the records
    /// @param withReflection  whether a record keeps a reflection as well as a colour
    /// @return false when rows or cols is negative or rows x cols is no 31-bit number, and nothing
    ///         has changed; false when memory runs out, and the storage is empty
    virtual bool setNewSize(int rows, int cols, bool allocate, bool withReflection) = 0;
    virtual bool acceptsNewSize() const = 0;

    virtual bool storesCartesian() const = 0;
    virtual bool storesColor() const = 0;
    virtual bool storesReflection() const = 0;

    /// Writes one point, colour included; a separate reflection becomes 0.
    /// Requires: the address lies in the grid; the caller holds the write lock.
    virtual void setPoint(int row, int col,
                          const Tq_1_1::ScanPtColor<Tq_1_1::Vec3d<float>>& point) = 0;
    /// Writes one point's reflection. Where records keep no separate one it replaces the colour.
    virtual void setReflection(int row, int col, std::uint16_t reflection) = 0;

    /// @return empty when the scan has no structured streams
    virtual std::shared_ptr<IStructuredStreams> openStructuredStreams(bool writable) const = 0;
    /// Where the scan comes from, as the host's file description says.
    virtual ScanSource getScanSource() const = 0;

    /// (columns, rows) of the point grid as it is now, whoever sized it.
    virtual Tq_1_1::SVec2d<int> getGridSize() const = 0;
};

}  // namespace Ovr::Interfaces
