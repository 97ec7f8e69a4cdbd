// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/PointSummary.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "mobile/CorvinMobilePointSet.h"
#include "session/Spread.h"

namespace ScanHost {

namespace {

using Tq_1_1::Mat4d;

bool onlyMoves(const Mat4d<double>& matrix) {
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t col = 0; col < 3; ++col) {
            if (matrix(row, col) != (row == col ? 1.0 : 0.0)) {
                return false;
            }
        }
    }
    return true;
}

/// What a pass over some of the points finds.
class Part {
  public:
    Part(const Hx::PointSet& points, const Mat4d<double>& toWorld)
        : points_(points),
          mobile_(dynamic_cast<const Vardex::CorvinMobilePointSet*>(&points)),
          toWorld_(toWorld),
          onlyMoves_(onlyMoves(toWorld)),
          separate_(points.hasSeparateReflection()) {}

    void walk(std::uint64_t begin, std::uint64_t end) {
        const bool isTimed = mobile_ != nullptr && mobile_->areTimeStampsEnabled();
        const auto cols = static_cast<std::uint64_t>(std::max(points_.getNumCols(), 1));
        for (std::uint64_t index = begin; index < end; ++index) {
            add(index);
            double seconds = 0.0;
            if (isTimed && mobile_->getScanPtTime(static_cast<int>(index / cols),
                                                  static_cast<int>(index % cols), seconds)) {
                found_.times.add(seconds);
            }
        }
    }
    void addTo(PointSummary& summary, std::uint64_t& reflectionSum);

  private:
    void add(std::uint64_t index);

    const Hx::PointSet& points_;
    const Vardex::CorvinMobilePointSet* mobile_;  ///< null for a stance
    const Mat4d<double>& toWorld_;
    bool onlyMoves_;
    bool separate_;
    PointSummary found_;
    std::array<Range<float>, 3> local_;  ///< bounds in the points' frame, where it is only moved
    std::uint64_t reflectionSum_ = 0;
};

void Part::add(std::uint64_t index) {
    const Hx::PointSet::ScanPt& point = points_.getScanPt(index);
    if (!isReturn(points_, point)) {
        return;
    }
    ++found_.returns;
    if (onlyMoves_) {
        local_[0].add(point.x);
        local_[1].add(point.y);
        local_[2].add(point.z);
    } else {
        const Tq_1_1::Vec3d<double> world = toWorld_.transform(positionOf(point));
        for (std::size_t i = 0; i < found_.bounds.size(); ++i) {
            found_.bounds[i].add(world[i]);
        }
    }
    const bool hasColor = point.hasColor();
    if (hasColor) {
        ++found_.withColor;
        for (std::size_t i = 0; i < found_.channels.size(); ++i) {
            found_.channels[i].add(point.color[i]);
        }
    }
    if (separate_ || !hasColor) {
        const int reflection = points_.getReflection(index);
        found_.reflection.add(reflection);
        reflectionSum_ += static_cast<std::uint64_t>(reflection);
        ++found_.withReflection;
    }
    found_.withNormal += point.normal.isSet() ? 1U : 0U;
}

void Part::addTo(PointSummary& summary, std::uint64_t& reflectionSum) {
    if (onlyMoves_ && found_.returns > 0) {
        // Moving keeps the order, so the ends move with all the rest.
        for (std::size_t i = 0; i < found_.bounds.size(); ++i) {
            found_.bounds[i] = {local_[i].low + toWorld_(i, 3), local_[i].high + toWorld_(i, 3)};
        }
    }
    summary.returns += found_.returns;
    summary.withColor += found_.withColor;
    summary.withReflection += found_.withReflection;
    summary.withNormal += found_.withNormal;
    for (std::size_t i = 0; i < summary.bounds.size(); ++i) {
        summary.bounds[i].add(found_.bounds[i]);
        summary.channels[i].add(found_.channels[i]);
    }
    summary.reflection.add(found_.reflection);
    summary.times.add(found_.times);
    reflectionSum += reflectionSum_;
}

}  // namespace

PointSummary summarize(const Hx::PointSet& points, const Mat4d<double>& toWorld) {
    PointSummary summary;
    summary.cells = points.getNumPoints();
    std::vector<Part> parts = spread(summary.cells, Part(points, toWorld));
    std::uint64_t reflectionSum = 0;
    for (Part& part : parts) {
        part.addTo(summary, reflectionSum);
    }
    if (summary.withReflection > 0) {
        summary.meanReflection =
            static_cast<double>(reflectionSum) / static_cast<double>(summary.withReflection);
    }
    return summary;
}

}  // namespace ScanHost
