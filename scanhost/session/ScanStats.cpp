// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/ScanStats.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "session/Interrupt.h"
#include "session/Median.h"
#include "session/MobileScan.h"
#include "session/NodePose.h"

namespace ScanHost {

namespace {

/// Points' times are kept in whole microseconds: one at the path's end may lie beyond it [s].
constexpr double kTimeStep = 1e-6;
/// The user may end the program after so many points.
constexpr std::uint64_t kPointsBetweenChecks = std::uint64_t{1} << 20;

/// Where the scanner was, and whether it stood still.
class ScannerPlace {
  public:
    explicit ScannerPlace(const ScanPath& path) : nodes_(path.nodes) {
        for (const PathStretch& stop : path.stops) {
            stops_.push_back({scanTimeOf(nodes_[stop.first]), scanTimeOf(nodes_[stop.last])});
        }
    }

    /// Goes to a scan time, not before the first node.
    /// @return false after the last node; the place stays then
    bool moveTo(double scanTime) {
        const double end = scanTimeOf(nodes_.back());
        if (scanTime > end + kTimeStep) {
            return false;
        }
        scanTime_ = std::min(scanTime, end);
        if (!isNext(next_)) {
            const auto isBefore = [this](double time, const Node& node) {
                return time < scanTimeOf(node);
            };
            next_ = static_cast<std::size_t>(
                std::upper_bound(nodes_.begin(), nodes_.end(), scanTime_, isBefore) -
                nodes_.begin());
        }
        return true;
    }

    Tq_1_1::Vec3d<double> position() const {
        if (next_ == nodes_.size()) {
            return positionOf(nodes_.back());
        }
        const Node& before = nodes_[next_ - 1];
        const Node& after = nodes_[next_];
        const double fraction = (scanTime_ - scanTimeOf(before)) / (after.time - before.time);
        const Tq_1_1::Vec3d<double> start = positionOf(before);
        return start + (positionOf(after) - start) * fraction;
    }

    bool isStill() const {
        const auto stop = std::lower_bound(
            stops_.begin(), stops_.end(), scanTime_,
            [](const Range<double>& range, double time) { return range.high < time; });
        return stop != stops_.end() && stop->low <= scanTime_;
    }

  private:
    using Node = Ovr::VardexLib::TrajectoryNode;

    double scanTimeOf(const Node& node) const { return node.time - nodes_.front().time; }
    /// Whether a node is the first after the time. Points mostly come in the order of time, and
    /// then the node of the last one often still is.
    bool isNext(std::size_t next) const {
        return next > 0 && next < nodes_.size() && scanTimeOf(nodes_[next - 1]) <= scanTime_ &&
               scanTime_ < scanTimeOf(nodes_[next]);
    }

    std::span<const Node> nodes_;
    std::vector<Range<double>> stops_;  ///< [s, scan time]
    double scanTime_ = 0.0;
    std::size_t next_ =
        0;  ///< number of the first node after the time; that of the nodes at the end
};

/// Counts points by the second of scan time.
class SecondCounts {
  public:
    void add(double seconds) {
        const auto second = static_cast<std::size_t>(seconds);
        if (second >= counts_.size()) {
            counts_.resize(second + 1);
        }
        ++counts_[second];
    }
    /// Of the seconds that lie wholly between two times.
    Range<std::uint64_t> within(const Range<double>& times) const {
        Range<std::uint64_t> range;
        if (!times.isEmpty()) {
            const auto end = static_cast<std::size_t>(times.high);
            for (auto second = static_cast<std::size_t>(std::ceil(times.low)); second < end;
                 ++second) {
                range.add(counts_[second]);
            }
        }
        return range;
    }

  private:
    std::vector<std::uint64_t> counts_;
};

class ScanWalk {
  public:
    ScanWalk(const Vardex::CorvinMobilePointSet& points, const ScanPath& path)
        : points_(points), path_(path), place_(path) {}

    ScanStats run() {
        const std::uint64_t count = points_.getNumPoints();
        if (path_.hasDistances) {
            distances_.reserve(count);
        }
        for (std::uint64_t index = 0; index < count; ++index) {
            if (index % kPointsBetweenChecks == 0) {
                Interrupt::check();
            }
            const auto [col, row] = points_.getColRow(index);
            double seconds = 0.0;
            if (points_.getScanPtTime(row, col, seconds)) {
                add(index, seconds);
            }
        }
        stats_.perSecond = seconds_.within(stats_.times);
        if (!distances_.empty()) {
            stats_.distances = PointDistances{range_.low, medianOf(distances_), range_.high};
        }
        return stats_;
    }

  private:
    void add(std::uint64_t index, double seconds) {
        if (seconds == 0.0 && !path_.nodes.empty()) {
            ++stats_.atZero;
            return;
        }
        ++stats_.timed;
        stats_.times.add(seconds);
        seconds_.add(seconds);
        if (path_.nodes.empty()) {
            return;
        }
        if (!place_.moveTo(seconds)) {
            ++stats_.outside;
            return;
        }
        stats_.still += place_.isStill() ? 1U : 0U;
        if (path_.hasDistances) {
            const double distance =
                distanceBetween(positionOf(points_.getScanPt(index)), place_.position());
            range_.add(distance);
            distances_.push_back(static_cast<float>(distance));
        }
    }

    const Vardex::CorvinMobilePointSet& points_;
    const ScanPath& path_;
    ScannerPlace place_;
    SecondCounts seconds_;
    Range<double> range_;
    std::vector<float> distances_;
    ScanStats stats_;
};

}  // namespace

ScanStats scanStats(const Vardex::CorvinMobilePointSet& points, const ScanPath& path) {
    return ScanWalk(points, path).run();
}

}  // namespace ScanHost
