// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/MapLegend.h"

#include <algorithm>
#include <functional>

#include <fmt/format.h>

#include "picture/PlotFrame.h"

namespace ScanHost {

namespace {

constexpr std::size_t kMostNames = 12;
// In sizes of letters.
constexpr double kArrow = 4.2;
constexpr double kBar = 11.0;
constexpr double kLine = 1.6;
constexpr double kGap = 1.8;

/// One part of the legend, with its height in sizes of letters.
struct Part {
    double height;
    std::function<void(Canvas&, const Box&)> draw;
};

void drawScanNames(Canvas& canvas, const Scene& scene, const Box& box, double font) {
    canvas.text({box.x, box.y + font}, "scans", {.size = font, .bold = true});
    const double small = 0.9 * font;
    double y = box.y + (kLine + 1.0) * font;
    const std::size_t shown = std::min(scene.size(), kMostNames);
    for (std::size_t i = 0; i < shown; ++i, y += kLine * font) {
        canvas.fill(Box{box.x, y - 0.85 * font, font, font}, categoryColor(i));
        canvas.text({box.x + 1.5 * font, y},
                    fittingText(scene[i].name, small, box.width - 1.5 * font), {.size = small});
    }
    if (shown < scene.size()) {
        canvas.text({box.x, y}, fmt::format("and {} more", scene.size() - shown), {.size = font});
    }
}

std::vector<Part> partsOf(const Scene& scene, const ViewAxes& axes, const PointColors& colors,
                          const PathColors& paths, double font) {
    std::vector<Part> parts;
    if (axes.up == 1) {
        parts.push_back({kArrow, [font](Canvas& canvas, const Box& box) {
                             drawNorthArrow(canvas, {box.x + 1.2 * font, box.y}, box.height, font);
                         }});
    }
    if (colors.by == ColorBy::Scan) {
        const std::size_t lines = 1 + std::min(scene.size(), kMostNames + 1);
        parts.push_back(
            {kLine * static_cast<double>(lines), [&scene, font](Canvas& canvas, const Box& box) {
                 drawScanNames(canvas, scene, box, font);
             }});
    }
    if (colors.hasBar()) {
        parts.push_back({kBar, [&colors, font](Canvas& canvas, const Box& box) {
                             drawColorBar(canvas, box, Palette::Points, colors.range.low,
                                          colors.range.high, colors.title, font);
                         }});
    }
    if (paths.range.low < paths.range.high && colors.by != ColorBy::Time) {
        parts.push_back({kBar, [&paths, font](Canvas& canvas, const Box& box) {
                             drawColorBar(canvas, box, paths.palette, paths.range.low,
                                          paths.range.high, "path: time [s]", font);
                         }});
    }
    return parts;
}

}  // namespace

double mapLegendHeight(const Scene& scene, const ViewAxes& axes, const PointColors& colors,
                       const PathColors& paths, const SheetSizes& sizes) {
    double height = 0.0;
    for (const Part& part : partsOf(scene, axes, colors, paths, sizes.font)) {
        height += (part.height + kGap) * sizes.font;
    }
    return std::max(height - kGap * sizes.font, 8.0 * sizes.font);
}

void drawMapLegend(Canvas& canvas, const Scene& scene, const MapFrame& frame,
                   const PointColors& colors, const PathColors& paths, const Box& column,
                   const SheetSizes& sizes) {
    double y = column.y;
    for (const Part& part : partsOf(scene, frame.axes, colors, paths, sizes.font)) {
        const double height = part.height * sizes.font;
        part.draw(canvas, {column.x, y, column.width, height});
        y += height + kGap * sizes.font;
    }
}

}  // namespace ScanHost
