// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/Panorama.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "picture/GridAngles.h"
#include "picture/PlotFrame.h"
#include "picture/PointColors.h"
#include "report/Failure.h"
#include "report/NumberText.h"

namespace ScanHost {

namespace {

constexpr double kTurn = 360.0;
constexpr double kMostHeight = 0.7;  // of the plot, as a part of its width

struct PanoramaGrid {
    GridOrientation orientation;
    std::optional<GridAngles> angles;
};

struct PanoramaPlot {
    PointColors colors;
    PlotAxis across;
    PlotAxis up;
    Image image{1, 1, kWhite};
    std::uint64_t missing = 0;  ///< cells without a return
};

Rgb pointColor(const SceneScan& scan, const PointColors& colors, std::uint64_t index) {
    const Hx::PointSet::ScanPt& point = scan.points().getScanPt(index);
    const Tq_1_1::Vec3d<double> local = positionOf(point);
    switch (colors.by) {
        case ColorBy::Own:
            return point.hasColor() ? Rgb{point.color[0], point.color[1], point.color[2]}
                                    : kUnknown;
        case ColorBy::Reflection:
            return colors.colorOf(scan.points().getReflection(index));
        case ColorBy::Height:
            return colors.colorOf(scan.toWorld.transform(local).z);
        default:
            return colors.colorOf(std::hypot(local.x, local.y, local.z));
    }
}

/// A pixel of slanted lines.
Rgb hatched(int x, int y) {
    constexpr int kSpacing = 8;
    return (x + y) % kSpacing < 2 ? kFaint : kWhite;
}

Image paintGrid(const SceneScan& scan, const PointColors& colors, const GridOrientation& grid,
                int width, int height) {
    const Hx::PointSet& points = scan.points();
    const std::int64_t rows = points.getNumRows();
    const std::int64_t cols = points.getNumCols();
    Image image(width, height, kWhite);
    for (int y = 0; y < height; ++y) {
        const std::int64_t down = y * rows / height;
        for (int x = 0; x < width; ++x) {
            const std::int64_t right = x * cols / width;
            const std::int64_t row = grid.upsideDown ? rows - 1 - down : down;
            const std::int64_t col = grid.mirrored ? cols - 1 - right : right;
            const auto index = static_cast<std::uint64_t>(row * cols + col);
            image.at(x, y) = Image::pack(isReturn(points, points.getScanPt(index))
                                             ? pointColor(scan, colors, index)
                                             : hatched(x, y));
        }
    }
    return image;
}

/// Angles, or numbers of columns and rows where the grid has none.
void layAxes(const SceneScan& scan, const PanoramaGrid& grid, double width, double height,
             PanoramaPlot& plot) {
    const double cols = scan.points().getNumCols();
    const double rows = scan.points().getNumRows();
    const auto most = [](double pixels, double each) {
        return std::max(2, static_cast<int>(pixels / each));
    };
    if (const auto& angles = grid.angles) {
        const std::vector<double> steps{0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1,
                                        2,    5,    10,   15,  30,  45,  90};
        const AngleSteps& right = angles->columns;
        const AngleSteps& down = angles->rows;
        // A column's own angle is in its middle.
        plot.across = {
            {right.first - 0.5 * right.step, right.first + (cols - 0.5) * right.step, 0.0, width},
            {},
            "horizontal angle, clockwise from the scanner's x axis [°]",
            kTurn};
        plot.up = {
            {down.first + (rows - 0.5) * down.step, down.first - 0.5 * down.step, height, 0.0},
            {},
            "vertical angle [°]"};
        plot.across.ticks =
            ticksBetween(plot.across.scale.low, plot.across.scale.high, most(width, 90.0), steps);
        plot.up.ticks =
            ticksBetween(plot.up.scale.low, plot.up.scale.high, most(height, 50.0), steps);
        return;
    }
    const bool left = grid.orientation.mirrored;
    plot.across = {{left ? cols : 0.0, left ? 0.0 : cols, 0.0, width}, {}, "column"};
    plot.up = {{grid.orientation.upsideDown ? 0.0 : rows, grid.orientation.upsideDown ? rows : 0.0,
                height, 0.0},
               {},
               "row"};
    plot.across.ticks = ticksBetween(0.0, cols, most(width, 90.0));
    plot.up.ticks = ticksBetween(0.0, rows, most(height, 50.0));
}

/// Height of the plot for its width, with equal degrees in both directions where there are degrees.
double aspectOf(const SceneScan& scan, const std::optional<GridAngles>& angles) {
    const double cells = static_cast<double>(scan.points().getNumRows()) /
                         static_cast<double>(scan.points().getNumCols());
    return angles ? cells * std::abs(angles->rows.step / angles->columns.step) : cells;
}

/// Finds the size of a plot, its axes and its pixels.
void layPlot(const SceneScan& scan, const SheetSizes& sizes, PanoramaPlot& plot) {
    const GridOrientation orientation = orientationOf(scan.points());
    const PanoramaGrid grid{orientation, anglesOf(scan.points(), orientation)};
    const double left = 5.0 * sizes.font;
    const double room = std::floor(sizes.width - left - sizes.column - 2.0 * sizes.font);
    const double aspect = aspectOf(scan, grid.angles);
    const double most = kMostHeight * room;
    const double width =
        std::floor(aspect * room > most ? std::max(most / aspect, 0.1 * room) : room);
    const double height = std::floor(std::clamp(aspect * width, 0.1 * room, most));
    layAxes(scan, grid, width, height, plot);
    plot.image = paintGrid(scan, plot.colors, orientation, static_cast<int>(width),
                           static_cast<int>(height));
    plot.across.scale.start += left;
    plot.across.scale.end += left;
    plot.up.scale.start += sizes.top;
    plot.up.scale.end += sizes.top;
}

void drawPanorama(Canvas& canvas, const PanoramaPlot& plot, const SheetSizes& sizes) {
    const Box box{plot.across.scale.start, plot.up.scale.end,
                  plot.across.scale.end - plot.across.scale.start,
                  plot.up.scale.start - plot.up.scale.end};
    canvas.image(box, plot.image);
    drawPlotFrame(canvas, plot.across, plot.up, sizes.font, PlotGrid::None);
    const double x = box.right() + 1.6 * sizes.font;
    double y = box.y;
    if (plot.colors.hasBar()) {
        drawColorBar(canvas, {x, y, sizes.column, 11.0 * sizes.font}, Palette::Points,
                     plot.colors.range.low, plot.colors.range.high, plot.colors.title, sizes.font);
        y += 13.0 * sizes.font;
    }
    const Box swatch{x, y, 1.5 * sizes.font, 1.2 * sizes.font};
    canvas.hatch(swatch, kFaint, 8.0);
    canvas.frame(swatch, kInk, 1.0);
    canvas.text({swatch.right() + 0.6 * sizes.font, swatch.bottom() - 0.2 * sizes.font},
                "no return", {.size = sizes.font});
}

}  // namespace

Sheet panoramaSheet(const Scene& scene, const PictureRequest& request) {
    const SceneScan& scan = scene.front();
    const std::uint64_t cells = scan.points().getNumPoints();
    const std::vector<PointSample> samples{samplePoints(scan)};
    if (samples.front().points.empty()) {
        throw Failure("there is nothing to draw: no point has a return");
    }
    const SheetSizes sizes(request.width);
    const auto plot = std::make_shared<PanoramaPlot>();
    plot->colors = choosePointColors(request, scene, samples);
    layPlot(scan, sizes, *plot);
    for (std::uint64_t index = 0; index < cells; ++index) {
        plot->missing += isReturn(scan.points(), scan.points().getScanPt(index)) ? 0U : 1U;
    }
    Sheet sheet;
    sheet.title.facts =
        fmt::format("panorama of {} · {} rows x {} columns · {}", scan.name,
                    scan.points().getNumRows(), scan.points().getNumCols(),
                    groupedCount(plot->missing, "cell without a return", "cells without a return"));
    sheet.width = sizes.width;
    const double legend = plot->colors.hasBar() ? 15.0 * sizes.font : 3.0 * sizes.font;
    const double height = std::max(plot->up.scale.start - sizes.top, legend);
    sheet.height = std::ceil(sizes.top + height + 3.6 * sizes.font);
    sheet.draw = [plot, sizes](Canvas& canvas) { drawPanorama(canvas, *plot, sizes); };
    return sheet;
}

}  // namespace ScanHost
