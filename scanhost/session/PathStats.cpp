// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/PathStats.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "session/Median.h"
#include "session/MobileScan.h"
#include "session/NodePose.h"
#include "session/PointSummary.h"

namespace ScanHost {

namespace {

using Nodes = std::span<const Ovr::VardexLib::TrajectoryNode>;

constexpr double kDegreesPerRadian = 180.0 / std::numbers::pi;
/// A stop is looked for from nodes that are this far apart [s], or a path with very many nodes in a
/// second would take for ever.
constexpr double kStopSearchStep = 0.01;

/// Angle of the rotation from one orientation to another, 0 to pi [rad].
double angleBetween(const Tq_1_1::Quaternion& a, const Tq_1_1::Quaternion& b) {
    // The product of b and the inverse of a. Its vector part keeps small angles exact.
    const double w = a.w * b.w + a.x * b.x + a.y * b.y + a.z * b.z;
    const double x = a.w * b.x - a.x * b.w + a.y * b.z - a.z * b.y;
    const double y = a.w * b.y - a.y * b.w + a.z * b.x - a.x * b.z;
    const double z = a.w * b.z - a.z * b.w + a.x * b.y - a.y * b.x;
    return 2.0 * std::atan2(std::sqrt(x * x + y * y + z * z), std::abs(w));
}

/// Values of steps, and the largest of them.
class Rates {
  public:
    explicit Rates(std::size_t count) { values_.reserve(count); }

    void add(double value, std::size_t at) {
        if (!std::isfinite(value)) {
            return;  // poses that are no numbers
        }
        if (values_.empty() || value > rate_.largest) {
            rate_.largest = value;
            rate_.at = at;
        }
        values_.push_back(value);
    }
    /// Requires: nothing is added or asked after it.
    std::optional<PathRate> finish() {
        if (values_.empty()) {
            return std::nullopt;
        }
        rate_.median = medianOf(values_);
        return rate_;
    }

  private:
    std::vector<double> values_;
    PathRate rate_;
};

void addRates(Nodes nodes, PathStats& stats) {
    Rates steps(nodes.size());
    Rates speeds(nodes.size());
    Rates turns(nodes.size());
    Tq_1_1::Quaternion before = rotationOf(nodes.front());
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        const Tq_1_1::Quaternion now = rotationOf(nodes[i]);
        const double distance = distanceBetween(positionOf(nodes[i - 1]), positionOf(nodes[i]));
        const double seconds = nodes[i].time - nodes[i - 1].time;
        stats.length += distance;
        if (seconds > 0.0) {
            steps.add(seconds, i - 1);
            speeds.add(distance / seconds, i - 1);
            turns.add(angleBetween(before, now) * kDegreesPerRadian / seconds, i - 1);
        } else {
            ++stats.timelessSteps;
        }
        before = now;
    }
    const std::optional<PathRate> step = steps.finish();
    stats.medianStep = step ? std::optional(step->median) : std::nullopt;
    stats.speed = speeds.finish();
    stats.turning = turns.finish();
}

void addGaps(Nodes nodes, PathStats& stats) {
    if (!stats.medianStep) {
        return;
    }
    const double longest = PathStats::kGapFactor * *stats.medianStep;
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        if (nodes[i].time - nodes[i - 1].time > longest) {
            stats.gaps.push_back({i - 1, i});
        }
    }
}

/// The last node up to which the path stays near a node and time does not fall.
std::size_t lastNear(Nodes nodes, std::size_t first, double radius) {
    const Tq_1_1::Vec3d<double> center = positionOf(nodes[first]);
    std::size_t last = first;
    while (last + 1 < nodes.size() && nodes[last + 1].time >= nodes[last].time &&
           distanceBetween(center, positionOf(nodes[last + 1])) <= radius) {
        ++last;
    }
    return last;
}

/// The next node from which a stop is looked for.
std::size_t nextToSearch(Nodes nodes, std::size_t node) {
    std::size_t next = node + 1;
    while (next < nodes.size() && nodes[next].time >= nodes[next - 1].time &&
           nodes[next].time < nodes[node].time + kStopSearchStep) {
        ++next;
    }
    return next;
}

void addStops(Nodes nodes, double radius, PathStats& stats) {
    for (std::size_t first = 0; first < nodes.size();) {
        const PathStretch stretch{first, lastNear(nodes, first, radius)};
        if (durationOf(nodes, stretch) > kShortestStop) {
            stats.stops.push_back(stretch);
            first = stretch.last + 1;
        } else {
            first = nextToSearch(nodes, first);
        }
    }
}

}  // namespace

PathStats pathStats(Nodes nodes, std::optional<double> stopRadius) {
    PathStats stats;
    Range<double> times;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        times.add(nodes[i].time);
        const double height = positionOf(nodes[i]).z;
        stats.lowest = height < positionOf(nodes[stats.lowest]).z ? i : stats.lowest;
        stats.highest = height > positionOf(nodes[stats.highest]).z ? i : stats.highest;
    }
    stats.duration = times.isEmpty() ? 0.0 : times.high - times.low;
    addRates(nodes, stats);
    addGaps(nodes, stats);
    if (stopRadius) {
        addStops(nodes, *stopRadius, stats);
    }
    return stats;
}

double durationOf(Nodes nodes, const PathStretch& stretch) {
    return nodes[stretch.last].time - nodes[stretch.first].time;
}

bool areInOrderOfTime(Nodes nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (!(nodes[i].time >= nodes[i == 0 ? 0 : i - 1].time)) {
            return false;
        }
    }
    return true;
}

}  // namespace ScanHost
