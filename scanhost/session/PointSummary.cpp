// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/PointSummary.h"

#include <cstddef>

namespace ScanHost {

namespace {

void addColor(const Hx::PointSet::ScanPt& point, PointSummary& summary) {
    ++summary.withColor;
    for (std::size_t i = 0; i < summary.channels.size(); ++i) {
        summary.channels[i].add(point.color[i]);
    }
}

}  // namespace

PointSummary summarize(const Hx::PointSet& points, const Tq_1_1::Mat4d<double>& toWorld) {
    PointSummary summary;
    summary.cells = points.getNumPoints();
    const bool separate = points.hasSeparateReflection();
    std::uint64_t reflectionSum = 0;
    for (std::uint64_t index = 0; index < summary.cells; ++index) {
        const Hx::PointSet::ScanPt& point = points.getScanPt(index);
        if (!isReturn(points, point)) {
            continue;
        }
        ++summary.returns;
        const Tq_1_1::Vec3d<double> world = toWorld.transform(positionOf(point));
        for (std::size_t i = 0; i < summary.bounds.size(); ++i) {
            summary.bounds[i].add(world[i]);
        }
        if (point.hasColor()) {
            addColor(point, summary);
        }
        if (separate || !point.hasColor()) {
            const int reflection = points.getReflection(index);
            summary.reflection.add(reflection);
            reflectionSum += static_cast<std::uint64_t>(reflection);
            ++summary.withReflection;
        }
        summary.withNormal += point.normal.isSet() ? 1U : 0U;
    }
    if (summary.withReflection > 0) {
        summary.meanReflection =
            static_cast<double>(reflectionSum) / static_cast<double>(summary.withReflection);
    }
    return summary;
}

}  // namespace ScanHost
