// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "view/PagePoints.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

#include "report/Report.h"

namespace ScanHost {

namespace {

/// The columns of a page's points. Those that no point of the scan has stay empty.
struct Columns {
    PageBytes positions;    ///< three steps of 32 bits, from the scan's origin
    PageBytes indices;      ///< 32 bits: row x columns + column
    PageBytes reflections;  ///< 16 bits
    PageBytes colors;       ///< red, green, blue, and whether the point has a colour
    PageBytes times;        ///< 32 bits: scan time [us]; all bits set: none
};

bool hasColors(const PageScan& scan) {
    return scan.summary.withColor > 0;
}

bool hasReflections(const PageScan& scan) {
    return scan.summary.withReflection > 0;
}

std::uint32_t microseconds(const PageScan& scan, std::uint64_t index) {
    constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
    constexpr double kPerSecond = 1e6;
    const auto [col, row] = scan.scan.pointSet->getColRow(index);
    double seconds = 0.0;
    if (!scan.mobile->points().getScanPtTime(row, col, seconds)) {
        return kNone;
    }
    const double steps = std::round(seconds * kPerSecond);
    return steps >= 0.0 && steps < kNone ? static_cast<std::uint32_t>(steps) : kNone;
}

void addPoint(const PageScan& scan, std::uint64_t index, const Tq_1_1::Vec3d<double>& world,
              Columns& columns) {
    const Hx::PointSet& points = *scan.scan.pointSet;
    const Tq_1_1::Vec3d<double> away = world - scan.origin;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        columns.positions.add(static_cast<std::int32_t>(std::lround(away[axis] / kPointStep)));
    }
    columns.indices.add(static_cast<std::uint32_t>(index));
    const Hx::PointSet::ScanPt& point = points.getScanPt(index);
    if (hasReflections(scan)) {
        columns.reflections.add(points.getReflection(index));
    }
    if (hasColors(scan)) {
        for (std::size_t channel = 0; channel < 3; ++channel) {
            columns.colors.add(point.hasColor() ? point.color[channel] : std::uint8_t{0});
        }
        columns.colors.add(std::uint8_t{point.hasColor()});
    }
    if (scan.hasTimes) {
        columns.times.add(microseconds(scan, index));
    }
}

/// A step that goes through so many places in a circle and comes by each once. Golden-ratio steps
/// leave no large gaps: the first part of a page's points is a thinner picture of all of them.
std::size_t spreadingStride(std::size_t count) {
    constexpr double kGoldenShare = 0.6180339887498949;
    auto stride = static_cast<std::size_t>(static_cast<double>(count) * kGoldenShare);
    while (std::gcd(stride, count) > 1) {
        ++stride;
    }
    return stride;
}

void addBlock(const PageBytes& bytes, const char* key, PageWriter& page, Json::Value& points) {
    points[key] = bytes.bytes().empty() ? Json::Value() : Json::Value(page.addBlock(bytes));
}

}  // namespace

std::uint64_t bytesPerPagePoint(const PageScan& scan) {
    return 16U + (hasReflections(scan) ? 2U : 0U) + (hasColors(scan) ? 4U : 0U) +
           (scan.hasTimes ? 4U : 0U);
}

Json::Value writePagePoints(const PageScan& scan, std::uint32_t number, VoxelThinning& thinning,
                            PageWriter& page) {
    std::vector<std::uint32_t> kept;
    forEachPagePoint(scan, [&](std::uint64_t index, const Tq_1_1::Vec3d<double>& world) {
        if (thinning.takes(number, world)) {
            kept.push_back(static_cast<std::uint32_t>(index));
        }
        return true;
    });
    const Tq_1_1::Mat4d<double> toWorld = scan.scan.toWorld();
    Columns columns;
    const std::size_t count = kept.size();
    const std::size_t stride = spreadingStride(count);
    for (std::size_t i = 0, place = 0; i < count; ++i, place = (place + stride) % count) {
        const Hx::PointSet::ScanPt& point = scan.scan.pointSet->getScanPt(kept[place]);
        addPoint(scan, kept[place], toWorld.transform(positionOf(point)), columns);
    }
    Json::Value points;
    points["count"] = Json::UInt64{count};
    points["of"] = Json::UInt64{scan.summary.returns};
    points["tooFar"] = Json::UInt64{scan.tooFar};
    points["step"] = kPointStep;
    addBlock(columns.positions, "positions", page, points);
    addBlock(columns.indices, "indices", page, points);
    addBlock(columns.reflections, "reflections", page, points);
    addBlock(columns.colors, "colors", page, points);
    addBlock(columns.times, "times", page, points);
    points["separateReflection"] = scan.scan.pointSet->hasSeparateReflection();
    return points;
}

}  // namespace ScanHost
