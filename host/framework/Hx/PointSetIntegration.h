// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "HostExport.h"
#include "Ovr/IScanData.h"
#include "Ovr/IScanIntegration.h"

namespace Hx {

class OvrPointSet;

/// Connects a point set with its scan data. Owns the scan data and the scan's locks. What the scan
/// data ask is passed on to the point set.
class HOST_EXPORT PointSetIntegration : public Ovr::Interfaces::IScanIntegration {
  public:
    /// @param pointSet  owns this integration; need not be constructed yet
    explicit PointSetIntegration(OvrPointSet& pointSet);
    PointSetIntegration(const PointSetIntegration&) = delete;
    PointSetIntegration& operator=(const PointSetIntegration&) = delete;
    ~PointSetIntegration() override;

    void modificationBegun(const Ovr::DataStructures::ScanDataModification& what) override;
    void modificationEnded(const Ovr::DataStructures::ScanDataModification& what) override;
    std::unique_ptr<Ovr::IPointDataWriteLock> getPointDataWriteLock(int timeout) override;
    std::unique_ptr<Ovr::IPointDataExclusiveAccess> getPointDataExclusiveAccess(
        const Ovr::IPointDataWriteLock& lock) override;
    /// Through resizePointStorage; the data are valid afterwards when @p allocate and successful.
    [[nodiscard]] bool setNewSize(int rows, int cols, bool allocate, bool withReflection) override;
    bool acceptsNewSize() const override;
    bool storesCartesian() const override;
    bool storesColor() const override;
    bool storesReflection() const override;
    void setPoint(int row, int col,
                  const Tq_1_1::ScanPtColor<Tq_1_1::Vec3d<float>>& point) override;
    void setReflection(int row, int col, std::uint16_t reflection) override;
    std::shared_ptr<Ovr::IStructuredStreams> openStructuredStreams(bool writable) const override;
    Ovr::ScanSource getScanSource() const override;
    Tq_1_1::SVec2d<int> getGridSize() const override;

    Ovr::Interfaces::IScanData& getScanData() const { return *scanData_; }
    void setScanData(std::unique_ptr<Ovr::Interfaces::IScanData> scanData);

    /// Replaces the locks, for a host that brings its own. Requires: none is out.
    void setPointDataLocks(std::shared_ptr<Ovr::IPointDataLocks> locks);
    /// Opens the structured streams in place of the search for files next to the points file.
    using StreamsFunction = std::function<std::shared_ptr<Ovr::IStructuredStreams>(bool writable)>;
    void setStructuredStreams(StreamsFunction open);
    /// Tells @p listener of every later modification. Not owned: it outlives the integration.
    void addModificationListener(Ovr::DataStructures::IModificationListener* listener);

  private:
    OvrPointSet& pointSet_;
    std::shared_ptr<Ovr::IPointDataLocks> locks_;
    StreamsFunction openStreams_;
    std::vector<Ovr::DataStructures::IModificationListener*> listeners_;
    std::unique_ptr<Ovr::Interfaces::IScanData> scanData_;
};

/// The integration for one class of scan data. It accepts sizes, colours and reflections.
template <typename ScanData>
class PointSetIntegrationT final : public PointSetIntegration {
  public:
    using MakeScanData =
        std::function<std::unique_ptr<ScanData>(Ovr::Interfaces::IScanIntegration&)>;

    PointSetIntegrationT(OvrPointSet& pointSet, const MakeScanData& makeScanData)
        : PointSetIntegration(pointSet) {
        setScanData(makeScanData(*this));
    }

    bool acceptsNewSize() const override { return true; }
    bool storesColor() const override { return true; }
    bool storesReflection() const override { return true; }
};

}  // namespace Hx
