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
    explicit ScannerPlace(const ScanPath& path) : path_(path) {}

    /// Goes to a scan time, not before the first node.
    /// @return false after the last node; the place stays then
    bool moveTo(double scanTime) {
        const auto& nodes = path_.nodes;
        const double end = nodes.back().time - nodes.front().time;
        if (scanTime > end + kTimeStep) {
            return false;
        }
        // On the nodes' clock the sum would be rounded to what its large numbers can hold.
        scanTime_ = std::min(scanTime, end);
        if (!isBetween(next_)) {
            const auto later = [this](double time, const Ovr::VardexLib::TrajectoryNode& node) {
                return time < scanTimeOf(node);
            };
            next_ = static_cast<std::size_t>(
                std::upper_bound(nodes.begin(), nodes.end(), scanTime_, later) - nodes.begin());
        }
        return true;
    }

    Tq_1_1::Vec3d<double> position() const {
        if (next_ == path_.nodes.size()) {
            return positionOf(path_.nodes.back());
        }
        const auto& before = path_.nodes[next_ - 1];
        const auto& after = path_.nodes[next_];
        const double fraction = (scanTime_ - scanTimeOf(before)) / (after.time - before.time);
        const Tq_1_1::Vec3d<double> start = positionOf(before);
        return start + (positionOf(after) - start) * fraction;
    }

    bool isStill() const {
        const auto ends = [this](const PathStretch& stop, double time) {
            return scanTimeOf(path_.nodes[stop.last]) < time;
        };
        const auto stop = std::lower_bound(path_.stops.begin(), path_.stops.end(), scanTime_, ends);
        return stop != path_.stops.end() && scanTimeOf(path_.nodes[stop->first]) <= scanTime_;
    }

  private:
    double scanTimeOf(const Ovr::VardexLib::TrajectoryNode& node) const {
        return node.time - path_.nodes.front().time;
    }
    /// Whether the time lies after a node's predecessor, or at it, and before the node.
    bool isBetween(std::size_t next) const {
        return next > 0 && next < path_.nodes.size() &&
               scanTimeOf(path_.nodes[next - 1]) <= scanTime_ &&
               scanTime_ < scanTimeOf(path_.nodes[next]);
    }

    const ScanPath& path_;
    double scanTime_ = 0.0;
    std::size_t next_ = 0;  ///< number of the first node after the time; behind the last at the end
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
            ScanStats::Distances& found = stats_.distances.emplace();
            found.least = range_.low;
            found.largest = range_.high;
            found.median = medianOf(distances_);
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
