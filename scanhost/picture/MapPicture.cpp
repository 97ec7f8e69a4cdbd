// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/MapPicture.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <fmt/format.h>

#include "picture/Axis.h"
#include "picture/Labels.h"
#include "picture/MapFrame.h"
#include "picture/MapLegend.h"
#include "picture/MapMarks.h"
#include "picture/PlotFrame.h"
#include "picture/PointColors.h"
#include "picture/Splat.h"
#include "picture/Title.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Interrupt.h"

namespace ScanHost {

namespace {

constexpr double kMostHeight = 0.8;  // of a plot, as a part of its width
constexpr double kFoot = 5.0;        // numbers and scale bar below the plot, in sizes of letters

/// What is drawn.
struct Map {
    PointColors colors;
    PathColors paths;
    MapFrame frame;  ///< in the picture
    PlotAxis across;
    PlotAxis up;
    Image image{1, 1, kWhite};
    std::uint64_t outside = 0;
};

MapBounds boundsOf(const Scene& scene, const std::vector<PointSample>& samples,
                   const ViewAxes& axes) {
    MapBounds bounds;
    for (std::size_t i = 0; i < scene.size(); ++i) {
        MapBounds own = boundsOfPoints(scene[i], axes, likelyBounds(samples[i]));
        own.add(boundsOfPath(scene[i], axes));
        addStance(scene[i], axes, own);
        bounds.add(own);
    }
    if (bounds.returns == 0) {
        throw Failure("there is nothing to draw: no point has a return");
    }
    return bounds;
}

PathColors pathColors(const Scene& scene, const PointColors& points) {
    PathColors colors;
    for (const SceneScan& scan : scene) {
        for (const PathNode& node : scan.path) {
            colors.range.add(node.seconds);
        }
    }
    if (points.by == ColorBy::Time && !colors.range.isEmpty()) {
        colors = {Palette::Points, points.range};
    }
    return colors;
}

Image paintPoints(const Scene& scene, const MapFrame& frame, const PointColors& colors,
                  std::uint64_t& outside) {
    const Box plot = frame.plot();
    PixelField field(static_cast<int>(plot.width), static_cast<int>(plot.height));
    outside = projectPoints(scene, frame, colors, field);
    const bool largest = colors.by == ColorBy::Height || colors.by == ColorBy::Time;
    const SplatOrder order = largest ? SplatOrder::LargestFirst : SplatOrder::NearestFirst;
    return paintField(field, splatSize(field), order,
                      [&colors](const PixelField::Cell& cell) { return cellColor(cell, colors); });
}

/// The axes of a frame. @return width of the numbers on the left [pixels]
double layAxes(const ScanUnits& units, const SheetSizes& sizes, Map& map) {
    const MapFrame& frame = map.frame;
    const Box plot = frame.plot();
    const int lines = std::max(2, static_cast<int>(plot.height / (3.5 * sizes.font)));
    map.up = {frame.up, ticksBetween(frame.up.low, frame.up.high, lines),
              axisLabel(units, frame.axes.up)};
    map.across.title = axisLabel(units, frame.axes.across);
    map.across.ticks = fittingTicks(frame.across.low, frame.across.high, plot.width, sizes.font);
    return numbersWidth(map.up.ticks, sizes.font);
}

/// Finds the frame of a map and its axes. @return the left edge of the plot [pixels]
double fitMap(const Scene& scene, const MapBounds& bounds, PictureKind kind, bool oneUnit,
              const SheetSizes& sizes, Map& map) {
    const double legend =
        std::ceil(mapLegendHeight(scene, viewAxes(kind), map.colors, map.paths, sizes));
    // The width of the numbers is not known before the frame is; it hardly changes with it.
    double left = 6.0 * sizes.font;
    for (int round = 0; round < 2; ++round) {
        const double width = std::floor(sizes.width - left - sizes.column - 2.0 * sizes.font);
        const double most = std::max(legend, std::floor(kMostHeight * width));
        map.frame = fitFrame(bounds, kind, oneUnit, {width, legend, most});
        left = std::ceil(layAxes(scene.front().scan->units, sizes, map) + 2.2 * sizes.font);
    }
    return left;
}

std::vector<std::string> notesOf(const Map& map, std::size_t outside, bool oneUnit) {
    std::vector<std::string> notes;
    if (map.outside > 0) {
        notes.push_back(groupedCount(map.outside, "point lies", "points lie") +
                        " outside of the picture.");
    }
    if (outside > 0) {
        notes.push_back(groupedCount(outside, "stance stands", "stances stand") +
                        " outside of the picture, far from the points.");
    }
    if (map.frame.exaggeration != 1.0 && oneUnit) {
        notes.push_back(
            fmt::format("Heights are drawn {} times as large.", shortText(map.frame.exaggeration)));
    }
    return notes;
}

void drawMap(Canvas& canvas, const Scene& scene, const Map& map, const Box& column,
             const SheetSizes& sizes) {
    const Box plot = map.frame.plot();
    const ScanUnits& units = scene.front().scan->units;
    canvas.image(plot, map.image);
    drawPlotFrame(canvas, map.across, map.up, sizes.font, PlotGrid::Crosses);
    LabelPlacer labels(plot);
    {
        const Canvas::Clip clip(canvas, plot);
        drawPaths(canvas, scene, map.frame, map.paths, sizes.font);
        drawMarks(canvas, scene, map.frame, labels, sizes.font);
    }
    drawMapLegend(canvas, scene, map.frame, map.colors, map.paths, column, sizes);
    if (!units.horizontal.isAngle) {
        drawScaleBar(canvas, {plot.x, plot.bottom() + 3.2 * sizes.font}, map.frame.pixel(),
                     0.2 * plot.width, units.label(0), sizes.font);
    }
}

}  // namespace

Sheet mapSheet(const Scene& scene, const PictureRequest& request) {
    const SheetSizes sizes(request.width);
    const ScanUnits& units = scene.front().scan->units;
    const ViewAxes axes = viewAxes(request.kind);
    const bool oneUnit = units.label(axes.across) == units.label(axes.up);
    std::vector<PointSample> samples;
    samples.reserve(scene.size());
    for (const SceneScan& scan : scene) {
        samples.push_back(samplePoints(scan));
    }
    const auto map = std::make_shared<Map>();
    map->colors = choosePointColors(request, scene, samples);
    map->paths = pathColors(scene, map->colors);
    const MapBounds bounds = boundsOf(scene, samples, axes);
    samples.clear();

    const double left = fitMap(scene, bounds, request.kind, oneUnit, sizes, *map);
    map->image = paintPoints(scene, map->frame, map->colors, map->outside);
    Interrupt::check();

    map->frame = map->frame.moved(left, sizes.top);
    map->across.scale = map->frame.across;
    map->up.scale = map->frame.up;
    const Box plot = map->frame.plot();
    const Box column{plot.right() + 1.6 * sizes.font, plot.y, sizes.column, plot.height};
    Sheet sheet;
    sheet.title.facts = factsText(request.kind, bounds.returns, scene);
    sheet.width = sizes.width;
    sheet.notes = notesOf(*map, bounds.farStances, oneUnit);
    sheet.height = std::ceil(plot.bottom() + kFoot * sizes.font + notesHeight(sheet.notes, sizes));
    sheet.draw = [&scene, map, column, sizes](Canvas& canvas) {
        drawMap(canvas, scene, *map, column, sizes);
    };
    return sheet;
}

}  // namespace ScanHost
