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
#include "session/NodePose.h"
#include "session/ScanClock.h"

namespace ScanHost {

/// The times and the trajectory of an imported mobile scan. Nodes are relative to the project's
/// origin, as the points are.
class MobileScan {
  public:
    /// Throws a Failure when the scan is no mobile one.
    /// @param scan  outlives this, and so does @p console
    MobileScan(const ImportedScan& scan, Console& console);
    /// Whether the scan is a mobile one.
    static bool isMobile(const ImportedScan& scan);

    /// Loads the trajectory that belongs to the scan: what the scan data hold, else what is read
    /// from its file. A scan without one has no nodes then. Throws a Failure when the trajectory
    /// cannot be read.
    void loadTrajectory();
    /// The same, but a scan without a trajectory is a Failure too.
    void requireTrajectory();

    /// Loads the points' times.
    /// @return false when the file has none. Throws a Failure when they cannot be loaded.
    [[nodiscard]] bool loadTimes();
    /// The same, but a file without times is a Failure too.
    void requireTimes();
    /// Makes the scan's duration known: it lasts as long as its trajectory.
    /// Requires: the trajectory is loaded and has nodes.
    void requireDuration();

    /// Leaves the nodes from one scan time to another, both included. Throws a Failure when there
    /// is none. Requires: the trajectory is loaded and has nodes.
    void cutTrajectory(double from, double to);

    Vardex::CorvinMobilePointSet& points() const { return *points_; }
    /// The trajectory's nodes, in the order of the file; shared with the scan data.
    /// Requires: the trajectory was loaded.
    const std::vector<Ovr::VardexLib::TrajectoryNode>& nodes() const { return *nodes_; }
    /// The scan's duration [s]; 0 before it is known.
    double duration() const { return points_->getMaxScanPointTime(); }
    /// The clock of the points file. Requires: the times or the trajectory are loaded; without
    /// either it shows scan times.
    ScanClock clock(const TimeOptions& options) const;
    /// Length of the path along the nodes [m].
    double pathLength() const;
    /// What the host's registry of operations gives for the point set. Throws a Failure when the
    /// module registered nothing.
    std::shared_ptr<Hx::IScanPointTimes> pointTimes() const;

  private:
    const ImportedScan& scan_;
    Console& console_;
    std::shared_ptr<Vardex::CorvinMobilePointSet> points_;
    Ovr::VardexLib::CorvinMobileScanData::SharedTrajectory nodes_;
};

/// Whether a scan time lies in a stretch, to the microsecond: times of a clock that counts years are
/// rounded, and a node at the very end of a stretch belongs to it. [s]
bool isInStretch(double seconds, double from, double to);

/// The distance of two points in one frame [m].
double distanceBetween(const Tq_1_1::Vec3d<double>& a, const Tq_1_1::Vec3d<double>& b);

}  // namespace ScanHost
