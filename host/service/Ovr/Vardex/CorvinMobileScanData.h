// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "HostExport.h"
#include "Ovr/Progress.h"
#include "Ovr/TrajectoryNode.h"
#include "Ovr/Vardex/CorvinScanData.h"
#include "Ovr/Vardex/IScanPointTimes.h"

namespace Ovr::VardexLib {

/// The data of a mobile scan: one row of points, a trajectory and a CorvinMobileMetaData.
class HOST_EXPORT CorvinMobileScanData final : public CorvinScanData {
  public:
    using SharedTrajectory = std::shared_ptr<const std::vector<TrajectoryNode>>;

    explicit CorvinMobileScanData(Interfaces::IScanIntegration& integration);
    ~CorvinMobileScanData() override;

    static std::string getStaticPointSetClassIdentifier();
    std::string getPointSetClassIdentifier() const override;

    /// A copy of the trajectory; empty when none was set. Threads: any.
    std::vector<TrajectoryNode> getTrajectoryNodes() const;
    /// Replaces the trajectory. Threads: any.
    void setTrajectoryNodes(const std::vector<TrajectoryNode>& nodes);

    /// Reads the trajectory of a scan's streams, positions relative to the project's origin.
    /// Stores it in no scan data.
    /// @param nodes  replaced on success, untouched on failure
    [[nodiscard]] static ErrorPtr readTrajectory(const IStructuredStreams& streams,
                                                 std::vector<TrajectoryNode>& nodes);

    /// The trajectory: the one that the scan data hold, else that of the scan's streams, which is
    /// read, kept, and remarked on. The project's origin is chosen before. Threads: any.
    /// @param nodes  out: shared, never null on success; without nodes when the scan has none
    /// @return empty on success; the error of reading, with @p nodes untouched
    [[nodiscard]] ErrorPtr fetchTrajectory(SharedTrajectory& nodes);

    /// Fills the point times through the registered IScanPointTimes service and sets the scan's
    /// duration. Time zero is the first trajectory node, else the earliest point. A scan that holds
    /// no trajectory first gets that of its streams, where they have one.
    /// @param progress  may be empty: the source's own is taken, if it has one
    /// @param cancel    may be empty: likewise
    /// @return empty on success. A file without times, a span beyond 32-bit microseconds, points
    ///         before time zero and clocks that do not meet are errors, and no time is written
    ///         then. After one that comes later, such as a cancel, all times are 0.
    [[nodiscard]] ErrorPtr loadTimeStamps(const IPointDataExclusiveAccess& access,
                                          DataStructures::ScanDataModificationScope& scope,
                                          std::shared_ptr<DataStructures::IProgress> progress,
                                          std::shared_ptr<DataStructures::ICancelInfo> cancel);
    /// The time that is scan time 0, on the trajectory's clock [s].
    /// @return empty before times are loaded, and where they cannot be unless it is known all the
    ///         same: times that span too much have an earliest one
    std::optional<double> getTimeZero() const { return timeZero_; }

    /// Sets every point time to 0 through the registered service.
    [[nodiscard]] ErrorPtr unloadTimeStamps(const IPointDataExclusiveAccess& access,
                                            DataStructures::ScanDataModificationScope& scope);

  private:
    [[nodiscard]] ErrorPtr readTimes(const ScanSource& source, IScanPointTimes& times,
                                     const DataStructures::Work& work);
    SharedTrajectory heldTrajectory() const;
    void holdTrajectory(SharedTrajectory nodes);

    // Questions about the path fetch and keep the trajectory from any thread.
    mutable std::mutex nodesMutex_;
    SharedTrajectory nodes_;
    std::optional<double> timeZero_;
};

}  // namespace Ovr::VardexLib
