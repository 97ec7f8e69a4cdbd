// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Hx/IScanPointTimes.h"
#include "Ovr/TrajectoryNode.h"
#include "Tq/Vec3d.h"

#include "mobile/CorvinMobilePointSet.h"
#include "report/Console.h"
#include "session/ImportedScan.h"

namespace ScanHost {

/// The times and the trajectory of an imported mobile scan. Nodes are relative to the project's
/// origin, as the points are.
class MobileScan {
  public:
    /// @param scan  outlives this. Throws a Failure when it is no mobile scan.
    MobileScan(const ImportedScan& scan, Console& console);
    static bool isMobile(const ImportedScan& scan);

    /// Reads the trajectory that belongs to the scan and hands it to the point set.
    /// @return false when the scan has none. Throws a Failure when it cannot be read.
    bool loadTrajectory();
    /// The same, but a scan without a trajectory is a failure too.
    void requireTrajectory();

    /// Loads the points' times.
    /// @return false when the file has none. Throws a Failure when they cannot be loaded.
    bool loadTimes();
    /// The same, but a file without times is a failure too.
    void requireTimes();
    /// Makes the scan's duration known: from the points' times or, where the points carry none,
    /// from the trajectory. Requires: the trajectory is loaded.
    void requireDuration();

    Vardex::CorvinMobilePointSet& points() const { return *points_; }
    const std::vector<Ovr::VardexLib::TrajectoryNode>& nodes() const { return *nodes_; }
    /// [s]
    double duration() const { return points_->getMaxScanPointTime(); }
    /// Length of the path along the nodes [m].
    double pathLength() const;
    /// What the host's registry of operations gives for the point set.
    std::shared_ptr<Hx::IScanPointTimes> pointTimes() const;

  private:
    const ImportedScan& scan_;
    Console& console_;
    std::shared_ptr<Vardex::CorvinMobilePointSet> points_;
    Ovr::VardexLib::CorvinMobileScanData::SharedTrajectory nodes_;
};

/// Position of a node [m].
inline Tq_1_1::Vec3d<double> positionOf(const Ovr::VardexLib::TrajectoryNode& node) {
    return {node.pose[12], node.pose[13], node.pose[14]};
}

double distanceBetween(const Tq_1_1::Vec3d<double>& a, const Tq_1_1::Vec3d<double>& b);

}  // namespace ScanHost
