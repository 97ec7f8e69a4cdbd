// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "picture/PointColor.h"
#include "picture/ScanPictures.h"

namespace ScanHost {

namespace {

constexpr Rgb kNoReturn{255, 0, 255};
// The longer side: small grids are enlarged to about this size, large ones thinned out to below
// it [pixels].
constexpr std::int64_t kSmallSide = 900;
constexpr std::int64_t kLargeSide = 4000;

/// How the grid lies in the scanner's surroundings.
struct Orientation {
    bool upsideDown;  ///< row 0 looks down
    bool mirrored;    ///< columns count counter-clockwise
};

Orientation orientationOf(const Hx::PointSet& points) {
    const int rows = points.getNumRows();
    const int cols = points.getNumCols();
    double upward = 0.0;
    double leftward = 0.0;
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < cols; ++col) {
            const auto& point = points.getScanPt(row, col);
            const double length = std::hypot(point.x, point.y, point.z);
            if (!isReturn(points, point)) {
                continue;
            }
            upward += (2.0 * row - (rows - 1)) * (point.z / length);
            const auto& next = points.getScanPt(row, (col + 1) % cols);
            const double turn =
                static_cast<double>(point.x) * next.y - static_cast<double>(point.y) * next.x;
            leftward += turn > 0.0 ? 1.0 : turn < 0.0 ? -1.0 : 0.0;
        }
    }
    return {upward > 0.0, leftward > 0.0};
}

}  // namespace

Picture panorama(const Hx::PointSet& points) {
    const std::int64_t rows = points.getNumRows();
    const std::int64_t cols = points.getNumCols();
    const PointColor colorOf(points, summarize(points, Tq_1_1::Mat4d<double>::identity()));
    const Orientation grid = orientationOf(points);
    const std::int64_t longest = std::max(rows, cols);
    const std::int64_t step = (longest + kLargeSide - 1) / kLargeSide;
    const std::int64_t zoom = std::max<std::int64_t>(1, kSmallSide / longest);
    const std::int64_t width = (cols + step - 1) / step;
    const std::int64_t height = (rows + step - 1) / step;
    Picture picture(static_cast<std::size_t>(width * zoom), static_cast<std::size_t>(height * zoom),
                    kNoReturn);
    for (std::int64_t y = 0; y < height; ++y) {
        for (std::int64_t x = 0; x < width; ++x) {
            const std::int64_t row = grid.upsideDown ? rows - 1 - y * step : y * step;
            const std::int64_t col = grid.mirrored ? cols - 1 - x * step : x * step;
            const auto index = static_cast<std::uint64_t>(row * cols + col);
            if (isReturn(points, points.getScanPt(index))) {
                picture.fill(x * zoom, y * zoom, zoom, zoom, colorOf(index));
            }
        }
    }
    return picture;
}

}  // namespace ScanHost
