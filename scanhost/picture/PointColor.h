// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstdint>

#include "Hx/PointSet.h"

#include "picture/Picture.h"
#include "session/PointSummary.h"

namespace ScanHost {

/// Gives the points of one scan their colours in pictures: a point's own colour, else its
/// reflection as a grey between the darkest and the brightest of the scan.
class PointColor {
  public:
    PointColor(const Hx::PointSet& points, const PointSummary& summary)
        : points_(points),
          darkest_(summary.reflection.isEmpty() ? 0 : summary.reflection.low),
          span_(summary.reflection.isEmpty()
                    ? 1
                    : std::max(1, summary.reflection.high - summary.reflection.low)) {}

    Rgb operator()(std::uint64_t index) const {
        const Hx::PointSet::ScanPt& point = points_.getScanPt(index);
        if (point.hasColor()) {
            return {point.color[0], point.color[1], point.color[2]};
        }
        const int grey = (points_.getReflection(index) - darkest_) * 255 / span_;
        const auto level = static_cast<std::uint8_t>(std::clamp(grey, 0, 255));
        return {level, level, level};
    }

  private:
    const Hx::PointSet& points_;
    int darkest_;
    int span_;
};

}  // namespace ScanHost
