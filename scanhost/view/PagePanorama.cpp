// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "view/PagePanorama.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace ScanHost {

namespace {

/// How the grid lies in the scanner's surroundings.
struct GridView {
    bool upsideDown = false;  ///< row 0 looks down
    bool mirrored = false;    ///< columns count counter-clockwise
    double rowAngle = 0.0;    ///< from one row to the next, looking up or down [rad]; 0: not known
};

double elevationOf(const Hx::PointSet::ScanPt& point) {
    return std::atan2(static_cast<double>(point.z),
                      std::hypot(static_cast<double>(point.x), static_cast<double>(point.y)));
}

/// The elevation by row as a straight line through all returns, and which way columns turn.
GridView gridViewOf(const Hx::PointSet& points) {
    const int rows = points.getNumRows();
    const int cols = points.getNumCols();
    double products = 0.0;
    double squares = 0.0;
    double leftward = 0.0;
    for (int row = 0; row < rows; ++row) {
        const double place = row - (rows - 1) / 2.0;
        for (int col = 0; col < cols; ++col) {
            const auto& point = points.getScanPt(row, col);
            if (!isReturn(points, point)) {
                continue;
            }
            products += place * elevationOf(point);
            squares += place * place;
            const auto& next = points.getScanPt(row, (col + 1) % cols);
            const double turn =
                static_cast<double>(point.x) * next.y - static_cast<double>(point.y) * next.x;
            leftward += turn > 0.0 ? 1.0 : turn < 0.0 ? -1.0 : 0.0;
        }
    }
    const double rowAngle = squares > 0.0 ? products / squares : 0.0;
    return {rowAngle > 0.0, leftward > 0.0, std::abs(rowAngle)};
}

/// Every so many rows and columns of a grid.
struct Sampling {
    std::int64_t step;
    std::int64_t rows;
    std::int64_t cols;
};

Sampling sampling(const Hx::PointSet& points, std::uint64_t mostCells) {
    const double excess = static_cast<double>(points.getNumPoints()) /
                          static_cast<double>(std::max<std::uint64_t>(1, mostCells));
    const auto step = std::max<std::int64_t>(1, std::llround(std::ceil(std::sqrt(excess))));
    return {step, (points.getNumRows() + step - 1) / step, (points.getNumCols() + step - 1) / step};
}

/// What a panorama shows of its cells, row by row from the upper left one on.
struct Cells {
    double longest = 0.0;   ///< [m]
    PageBytes ranges;       ///< 16 bits: in 65535ths of the longest; 0: no return
    PageBytes reflections;  ///< 8 bits
    PageBytes colors;       ///< red, green, blue
};

template <typename Visit>
void forEachCell(const Hx::PointSet& points, const GridView& view, const Sampling& sampling,
                 const Visit& visit) {
    const std::int64_t rows = points.getNumRows();
    const std::int64_t cols = points.getNumCols();
    for (std::int64_t y = 0; y < sampling.rows; ++y) {
        for (std::int64_t x = 0; x < sampling.cols; ++x) {
            const std::int64_t row =
                view.upsideDown ? rows - 1 - y * sampling.step : y * sampling.step;
            const std::int64_t col =
                view.mirrored ? cols - 1 - x * sampling.step : x * sampling.step;
            visit(points.getSelectItem(static_cast<std::uint64_t>(row * cols + col)));
        }
    }
}

Cells cellsOf(const PageScan& scan, const GridView& view, const Sampling& sampling) {
    constexpr double kLongestStep = 65535.0;
    const Hx::PointSet& points = *scan.scan.pointSet;
    Cells cells;
    forEachCell(points, view, sampling, [&](const Hx::SelectItem& item) {
        if (isReturn(points, points.getScanPt(item))) {
            cells.longest = std::max(cells.longest, points.getDistance(item));
        }
    });
    forEachCell(points, view, sampling, [&](const Hx::SelectItem& item) {
        const Hx::PointSet::ScanPt& point = points.getScanPt(item);
        const bool there = isReturn(points, point);
        const double step = points.getDistance(item) / cells.longest * kLongestStep;
        cells.ranges.add(
            static_cast<std::uint16_t>(there ? std::clamp(step, 1.0, kLongestStep) : 0.0));
        cells.reflections.add(
            static_cast<std::uint8_t>(there ? points.getReflection(item) >> 8U : 0));
        for (std::size_t channel = 0; channel < 3; ++channel) {
            cells.colors.add(there && point.hasColor() ? point.color[channel] : std::uint8_t{0});
        }
    });
    return cells;
}

}  // namespace

Json::Value writePagePanorama(const PageScan& scan, std::uint64_t mostCells, PageWriter& page) {
    const Hx::PointSet& points = *scan.scan.pointSet;
    const GridView view = gridViewOf(points);
    const Sampling size = sampling(points, mostCells);
    const Cells cells = cellsOf(scan, view, size);
    Json::Value panorama;
    panorama["rows"] = Json::Int64{size.rows};
    panorama["cols"] = Json::Int64{size.cols};
    panorama["step"] = Json::Int64{size.step};
    panorama["upsideDown"] = view.upsideDown;
    panorama["mirrored"] = view.mirrored;
    panorama["rowAngle"] = view.rowAngle;
    panorama["colAngle"] = 2.0 * std::numbers::pi / points.getNumCols();
    panorama["longest"] = cells.longest;
    panorama["ranges"] = page.addBlock(cells.ranges);
    panorama["reflections"] = scan.summary.withReflection > 0
                                  ? Json::Value(page.addBlock(cells.reflections))
                                  : Json::Value();
    panorama["colors"] =
        scan.summary.withColor > 0 ? Json::Value(page.addBlock(cells.colors)) : Json::Value();
    return panorama;
}

}  // namespace ScanHost
