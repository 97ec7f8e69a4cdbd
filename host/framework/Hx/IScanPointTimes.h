// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "HostExport.h"
#include "Hx/IOMessages.h"
#include "Hx/Operation.h"
#include "Tq/Vec3d.h"

namespace Hx {

class PC2TimeFilter;
class PointSet;

/// Point times and trajectory of a point set. Scan time counts from the start of the recording;
/// positions are in the frame of the set's points [m]. The virtual operations keep their order.
/// Threads: questions from any thread while nobody writes points, times or trajectory.
class HOST_EXPORT IScanPointTimes {
  public:
    virtual ~IScanPointTimes();

    /// @param seconds  out: time of the point [s, scan time]; 0 when there is none
    /// @return false outside the grid and while the points are not valid
    [[nodiscard]] virtual bool getScanPtTime(int row, int col, double& seconds) const = 0;
    /// Loads the times of all points from where the scan came from.
    /// @return 0; IO_LOCK_NOT_OBTAINED, IO_NO_POINT_TIMES or what the service's error converts to
    [[nodiscard]] virtual IOMessages::IOResult loadScanPtTimes() = 0;
    /// Duration of the scan [s]; the largest double when nothing is known of it.
    virtual double getMaxScanPointTime() const = 0;
    /// Walked positions within a time span, near-duplicates left out; empty without a trajectory.
    virtual std::vector<Tq_1_1::Vec3d<double>> getSelectedTrajectory(
        const PC2TimeFilter& filter) const = 0;
    /// Time span of the path around a point, as fractions of the scan.
    /// @param predicate  whether a position still belongs to the span
    /// @return false without a trajectory; @p begin and @p end are untouched then
    [[nodiscard]] virtual bool getTrajectoryFractionAtPoint(
        const Tq_1_1::Vec3d<double>& point,
        const std::function<bool(const Tq_1_1::Vec3d<double>&)>& predicate, double& begin,
        double& end) const = 0;
    /// Scanner position at a scan time [s].
    /// @return no value outside the scan and without a trajectory
    virtual std::optional<Tq_1_1::Vec3d<double>> getRecordingPositionForTime(
        const double& seconds) const = 0;

    struct HOST_EXPORT Operations {
        /// Gives the point set's times, sharing its ownership; empty when it has none.
        static Operation::Context<PointSetOps::KeyType<PointSet>,
                                  std::shared_ptr<IScanPointTimes>(std::shared_ptr<PointSet>)>
            hasScanPointTimes;
    };
};

}  // namespace Hx
