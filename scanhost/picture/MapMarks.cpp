// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/MapMarks.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "picture/Axis.h"
#include "report/NumberText.h"

namespace ScanHost {

namespace {

constexpr double kMarkRadius = 0.5;  // of the size of letters
// Steps of a path's colours. With more a picture of lines would be larger and look the same.
constexpr double kColorSteps = 64.0;

/// The places of a path in a picture, without those that are nearer than this to the one before.
struct PlacedNode {
    Spot spot;
    double seconds;
};

std::vector<PlacedNode> placed(const std::vector<PathNode>& path, const MapFrame& frame) {
    constexpr double kNearest = 0.7;  // pixels
    std::vector<PlacedNode> nodes;
    for (const PathNode& node : path) {
        const Spot spot = frame.spot(node.position);
        const bool isLast = &node == &path.back();
        if (nodes.empty() || isLast ||
            std::hypot(spot.x - nodes.back().spot.x, spot.y - nodes.back().spot.y) >= kNearest) {
            nodes.push_back({spot, node.seconds});
        }
    }
    return nodes;
}

void drawPath(Canvas& canvas, const std::vector<PlacedNode>& nodes, const PathColors& colors,
              double lineWidth) {
    const double span = std::max(colors.range.high - colors.range.low, 1e-9);
    const auto stepOf = [&](const PlacedNode& node) {
        return std::floor((node.seconds - colors.range.low) / span * kColorSteps);
    };
    std::vector<Spot> run;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        run.push_back(nodes[i].spot);
        const bool ends = i + 1 == nodes.size() || stepOf(nodes[i + 1]) != stepOf(nodes[i]);
        if (ends && run.size() > 1) {
            canvas.line(run, paletteColor(colors.palette, stepOf(nodes[i]) / kColorSteps),
                        lineWidth);
            run.assign(1, nodes[i].spot);
        }
    }
}

std::string withName(const char* what, const SceneScan& scan, bool named) {
    return named ? fmt::format("{}, {}", what, scan.name) : what;
}

bool holds(const MapFrame& frame, const Tq_1_1::Vec3d<double>& world) {
    const Spot spot = frame.spot(world);
    return frame.plot().holds({spot.x, spot.y, 0.0, 0.0});
}

Box boxOf(const Spot& spot, double radius) {
    return {spot.x - radius, spot.y - radius, 2.0 * radius, 2.0 * radius};
}

/// Draws the arrow of a stance's heading and keeps labels off it.
void drawHeading(Canvas& canvas, const SceneScan& scan, const MapFrame& frame, LabelPlacer& labels,
                 double fontSize) {
    constexpr double kSeen = 0.3;  // a heading towards the viewer has no direction in the picture
    const double right = scan.stance->heading[frame.axes.across];
    const double down = -scan.stance->heading[frame.axes.up] * frame.exaggeration;
    const double length = std::hypot(right, down);
    if (length < kSeen) {
        return;
    }
    const Spot ahead{right / length * fontSize, down / length * fontSize};
    const Spot spot = frame.spot(scan.stance->position);
    const auto at = [&](double forward, double sideward) {
        return Spot{spot.x + forward * ahead.x - sideward * ahead.y,
                    spot.y + forward * ahead.y + sideward * ahead.x};
    };
    canvas.line({at(0.0, 0.0), at(1.9, 0.0)}, kWhite, 0.5 * fontSize);
    canvas.line({at(0.0, 0.0), at(1.6, 0.0)}, kBlack, 0.2 * fontSize);
    canvas.fill(std::vector<Spot>{at(2.2, 0.0), at(1.3, 0.42), at(1.3, -0.42)}, kBlack);
    labels.reserve(boxOf(at(1.6, 0.0), 0.4 * fontSize));
}

}  // namespace

void drawPaths(Canvas& canvas, const Scene& scene, const MapFrame& frame, const PathColors& colors,
               double fontSize) {
    std::vector<std::vector<PlacedNode>> paths;
    paths.reserve(scene.size());
    for (const SceneScan& scan : scene) {
        paths.push_back(placed(scan.path, frame));
        std::vector<Spot> spots;
        spots.reserve(paths.back().size());
        for (const PlacedNode& node : paths.back()) {
            spots.push_back(node.spot);
        }
        canvas.line(spots, kWhite, 0.42 * fontSize);
    }
    for (const std::vector<PlacedNode>& path : paths) {
        drawPath(canvas, path, colors, 0.22 * fontSize);
    }
}

void drawMarks(Canvas& canvas, const Scene& scene, const MapFrame& frame, LabelPlacer& labels,
               double fontSize) {
    const double radius = kMarkRadius * fontSize;
    const TextStyle style{.size = fontSize, .bold = true};
    const auto paths = std::count_if(scene.begin(), scene.end(),
                                     [](const SceneScan& scan) { return !scan.path.empty(); });
    struct Mark {
        Spot spot;
        std::string name;
    };
    std::vector<Mark> marks;
    for (const SceneScan& scan : scene) {
        if (!scan.path.empty()) {
            const Spot start = frame.spot(scan.path.front().position);
            const Spot end = frame.spot(scan.path.back().position);
            canvas.fill(boxOf(end, 1.3 * radius), kWhite);
            canvas.fill(boxOf(end, radius), kBlack);
            canvas.disc(start, radius, kWhite, kBlack, 0.2 * fontSize);
            marks.push_back({start, withName("start", scan, paths > 1)});
            marks.push_back({end, withName("end", scan, paths > 1)});
        }
        if (scan.stance && holds(frame, scan.stance->position)) {
            drawHeading(canvas, scan, frame, labels, fontSize);
            const Spot spot = frame.spot(scan.stance->position);
            canvas.disc(spot, 1.1 * radius, kBlack, kWhite, 0.15 * fontSize);
            marks.push_back({spot, scan.name});
        }
    }
    for (const Mark& mark : marks) {
        labels.reserve(boxOf(mark.spot, radius));
    }
    for (const Mark& mark : marks) {
        labels.write(canvas, mark.spot, 1.6 * radius, mark.name, style);
    }
}

void drawNorthArrow(Canvas& canvas, const Spot& top, double height, double fontSize) {
    const double half = 0.28 * height;
    const double head = top.y + 1.3 * fontSize;
    const double tail = top.y + height;
    canvas.text({top.x, top.y + fontSize}, "N",
                {.size = 1.2 * fontSize, .align = Align::Middle, .bold = true});
    canvas.fill(std::vector<Spot>{{top.x, head}, {top.x - half, tail}, {top.x, tail - 0.6 * half}},
                kBlack);
    canvas.line({{top.x, head}, {top.x + half, tail}, {top.x, tail - 0.6 * half}, {top.x, head}},
                kBlack, 1.5);
}

void drawScaleBar(Canvas& canvas, const Spot& left, double pixel, double most,
                  const std::string& unit, double fontSize) {
    const double length = roundBelow(most * pixel);
    const double width = length / pixel;
    const double height = 0.45 * fontSize;
    canvas.fill({left.x, left.y, 0.5 * width, height}, kBlack);
    canvas.frame({left.x, left.y, width, height}, kBlack, 1.5);
    const bool kilometres = unit == "m" && length >= 1000.0;
    const double shown = kilometres ? length / 1000.0 : length;
    canvas.text({left.x + width + 0.5 * fontSize, left.y + height},
                fmt::format("{} {}", fixedText(shown, digitsOf(shown)), kilometres ? "km" : unit),
                {.size = fontSize, .bold = true});
}

}  // namespace ScanHost
