// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <vector>

#include "Hx/IScanPointTimes.h"
#include "Hx/PC2TimeFilter.h"
#include "Hx/PointWriteLock.h"
#include "Ovr/TrajectoryNode.h"
#include "Ovr/Vardex/CorvinMobileScanData.h"
#include "Tq/Vec3d.h"

#include "module/frame/VardexExport.h"
#include "pointset/CorvinPointSet.h"
#include "trajectory/TrajectoryNode.h"

namespace Vardex {

class TrajectoryCache;

/// The points of a mobile scan, recorded while the scanner was carried along a path. Every point
/// may carry the time at which it was measured, and the scan has a trajectory: the path, sampled as
/// timed poses, which its scan data hold.
///
/// Scan time: seconds since the start of the recording. Scan time 0 is the time of the first
/// trajectory node; without a trajectory it is the time of the earliest point. Fractions of the
/// scan are scan time / getMaxScanPointTime(). Positions are in the frame of the set's points [m].
///
/// Threads: reading is free of locks. Times of single points, and the nodes, are written by one
/// thread at a time; the caller takes care of that.
class VARDEX_EXPORT CorvinMobilePointSet final : public CorvinPointSet, public Hx::IScanPointTimes {
  public:
    /// The class record's kind. Instances come from the host's point-set factory.
    class ClassCreator : public Tq_1_1::CreateableHxClass<Hx::PointContainerBase> {
      public:
        using CreateableHxClass::CreateableHxClass;
        /// @return empty
        Hx::PointContainerBase::ClassPointer create() const override;
    };
    class VARDEX_INTERNAL ScanPtTimes;

    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    /// Without points, times or trajectory; bound to scan data of its own.
    explicit CorvinMobilePointSet(const Tq_1_1::String& name);
    ~CorvinMobilePointSet() override;

    Ovr::VardexLib::CorvinMobileScanData& getMobileScanData();
    const Ovr::VardexLib::CorvinMobileScanData& getMobileScanData() const;

    /// @return empty when the host refuses a size or finds the set faulty
    std::shared_ptr<Hx::PointSet> createNewPointSet(int size1, int size2,
                                                    const Tq_1_1::String& name) const override;

    // --- Point times ---------------------------------------------------------------------------
    /// Says whether records have a time field. Switching on also gives the field, with time 0, to
    /// the records that are there; switching off changes only later sizings.
    /// @return IO_LOCK_NOT_OBTAINED when points must be converted and the write lock was not given
    ///         in time; later sizings follow the new setting all the same
    /// @throw std::bad_alloc  the records are as they were
    [[nodiscard]] Hx::IOMessages::IOResult enableTimeStamps(bool enable);
    bool areTimeStampsEnabled() const { return timeStampsEnabled_; }

    /// Gives the records a time field and has the scan data fill it. The scan data also read and
    /// keep the trajectory when they hold none. Holds the point-data write lock and, while the scan
    /// data work, exclusive access. The field stays when a later step fails.
    /// Times come in the order of the file. After a sort they would go to other points: load the
    /// times of a scan before it is sorted, and import it again to load them again.
    /// @return IO_LOCK_NOT_OBTAINED when either was not given; IO_NO_POINT_TIMES when there are no
    ///         points that could carry times; the converted error of the scan data
    /// @throw std::runtime_error  an error of the scan data without a code of the service
    /// @throw std::bad_alloc      the records are as they were
    [[nodiscard]] Hx::IOMessages::IOResult loadScanPtTimes() override;

    /// Has the scan data drop the times. The records keep their time field.
    /// @return as loadScanPtTimes, without IO_NO_POINT_TIMES
    [[nodiscard]] Hx::IOMessages::IOResult unloadScanPtTimes();

    /// Makes the set's own time service the one that the scan data use. Nothing is sized: the times
    /// lie in the records of the points.
    /// @return whether the grid has this size
    bool resizeScanPtTimes(int rows, int cols);

    /// Stores a point's time in whole microseconds, modulo 2^32. Seconds that are negative, not a
    /// number or beyond 64-bit microseconds are not stored, nor is a time outside the grid.
    void setScanPtTime(int row, int col, double seconds);
    /// @param seconds  out: scan time; 0.0 where the record has no time field
    /// @return false, and 0.0 in @p seconds, outside the grid and while the data are not valid
    bool getScanPtTime(int row, int col, double& seconds) const override;

    /// The scan's duration as its metadata state it [s]; the records are not searched.
    /// @return the largest double when the metadata are not a mobile scan's
    double getMaxScanPointTime() const override;
    /// Does nothing when the metadata are not a mobile scan's. Does not mark the info as modified:
    /// the duration comes from the file and not from the user.
    /// @param seconds  [s]
    void setMaxScanPointTime(double seconds);

    /// Puts the points into the order in which they were measured; without point times nothing
    /// happens. A point's place in the grid is its rank in time from then on.
    /// @param lock  the caller's proof that it holds this set's write lock
    void sortScanPointsByTime(const Hx::PointWriteLock& lock);

    // --- Trajectory ----------------------------------------------------------------------------
    // Nodes are taken in the order given; the queries expect them in ascending time.

    /// Replaces the trajectory by copies of the nodes; null pointers are skipped.
    /// getRecordingPositionForTime always uses the trajectory present at its first call.
    void setTrajectoryNodes(const std::vector<std::shared_ptr<TrajectoryNode>>& nodes);

    /// The positions of the nodes within a span given in fractions of the scan, both ends included.
    /// Where the scanner stood still, only its first position is kept.
    /// @return empty when the span ends before it starts, or holds no node
    std::vector<Tq_1_1::Vec3d<double>> getSelectedTrajectory(
        const Hx::PC2TimeFilter& filter) const override;

    /// The span of the unbroken stretch of path around the node nearest to a point.
    /// @param predicate  whether a position belongs to the stretch; an empty one throws
    ///                   std::bad_function_call
    /// @param begin,end  out: fractions of the scan; infinite or not a number when its duration is
    ///                   0
    /// @return false without a trajectory; nothing is written then
    bool getTrajectoryFractionAtPoint(
        const Tq_1_1::Vec3d<double>& point,
        const std::function<bool(const Tq_1_1::Vec3d<double>&)>& predicate, double& begin,
        double& end) const override;

    /// Where the scanner was, from a table of positions that the first call makes.
    /// @param seconds  scan time
    /// @return no value outside the scan; never a value when there was no trajectory or no duration
    ///         at the first call
    /// Threads: any; the first callers wait for the table, later ones read it without a lock.
    std::optional<Tq_1_1::Vec3d<double>> getRecordingPositionForTime(
        const double& seconds) const override;

    /// Writes the trajectory as text in world coordinates; see docs/trajectory-text.md.
    /// @return IO_NO_STREAMS when there are neither nodes nor streams to read them from; the
    ///         converted error of reading them; in both cases nothing is written. IO_WRITE_FAILED
    ///         when the stream is in a failed state afterwards. A trajectory without nodes gives
    ///         the header line alone
    [[nodiscard]] Hx::IOMessages::IOResult writeTrajectoryToStream(std::ostream& out) const;

    // --- What the host asks of every point set -------------------------------------------------
    bool resizePointStorage(int rows, int cols, bool allocate, bool withReflection) override;
    // A path has no angular grid.
    double getHorizontalRange() const override { return 0.0; }
    double getMinHorizontalAngle() const override { return 0.0; }
    double getMaxHorizontalAngle() const override { return 0.0; }
    double getMaxVerticalAngle() const override { return 0.0; }
    using CorvinPointSet::getColRow;
    Hx::CPoint getColRow(const Hx::Polar3d<float>& direction) const override;
    bool isPointCloud() const override { return true; }
    /// 2 cm.
    std::optional<double> getPointAccuracy() const override { return 0.02; }

  private:
    /// The scan data, which also a query changes when it loads the trajectory.
    VARDEX_INTERNAL Ovr::VardexLib::CorvinMobileScanData& mobileScanData() const;
    VARDEX_INTERNAL std::shared_ptr<Ovr::VardexLib::CorvinMetaData> metaData() const override;
    VARDEX_INTERNAL std::shared_ptr<Ovr::VardexLib::CorvinMobileMetaData> mobileMetaData() const;
    /// Registers the set's time service unless another one is there.
    VARDEX_INTERNAL void lendScanPtTimes();

    /// The trajectory; read from the scan's streams and kept in the scan data when these hold none.
    /// @return empty when there is none or it cannot be read
    VARDEX_INTERNAL std::vector<Ovr::VardexLib::TrajectoryNode> fetchTrajectoryNodes() const;
    VARDEX_INTERNAL void buildTrajectoryCache() const;

    bool timeStampsEnabled_ = false;
    std::shared_ptr<ScanPtTimes> scanPtTimes_;
    std::unique_ptr<TrajectoryCache> trajectoryCache_;
};

}  // namespace Vardex
