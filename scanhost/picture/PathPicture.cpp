// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/PathPicture.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <fmt/format.h>

#include "picture/Axis.h"
#include "picture/ChartNotes.h"
#include "picture/PathCharts.h"
#include "picture/PlotFrame.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/PointSummary.h"

namespace ScanHost {

namespace {

struct NamedPath {
    std::string name;
    std::vector<PathState> states;
};

struct Chart {
    PlotAxis across;
    PlotAxis up;
    double PathState::*value;
};

struct PathCharts {
    std::vector<NamedPath> paths;
    std::vector<Chart> charts;
};

std::vector<NamedPath> pathsOf(const Scene& scene, double& window) {
    double duration = 0.0;
    for (const SceneScan& scan : scene) {
        for (const PathNode& node : scan.path) {
            duration = std::max(duration, node.seconds);
        }
    }
    window = speedWindow(duration);
    std::vector<NamedPath> paths;
    for (const SceneScan& scan : scene) {
        if (!scan.path.empty()) {
            paths.push_back({scan.name, pathStates(scan.path, window)});
        }
    }
    return paths;
}

/// The values of a chart with some room above and below.
/// @param least  difference of the ends at least
Range<double> rangeOf(const std::vector<NamedPath>& paths, double PathState::*value, double least) {
    constexpr double kRoom = 0.06;
    Range<double> range;
    for (const NamedPath& path : paths) {
        for (const PathState& state : path.states) {
            range.add(state.*value);
        }
    }
    const double room =
        std::max(kRoom * (range.high - range.low), 0.5 * (least - (range.high - range.low)));
    // Speeds and distances begin at 0.
    const double low = range.low >= 0.0 && value != &PathState::height ? 0.0 : range.low - room;
    return {low, range.high + room};
}

Chart chartOf(const std::vector<NamedPath>& paths, double PathState::*value,
              const std::string& title, const Box& box, double font) {
    const double least = value == &PathState::height ? 0.1 : 1e-3;
    const Range<double> up = rangeOf(paths, value, least);
    Range<double> time;
    for (const NamedPath& path : paths) {
        time.add(path.states.front().seconds);
        time.add(path.states.back().seconds);
    }
    time.high = std::max(time.high, time.low + 1e-3);
    Chart chart{{{time.low, time.high, box.x, box.right()}, {}, "scan time [s]"},
                {{up.low, up.high, box.bottom(), box.y}, {}, title},
                value};
    chart.across.ticks =
        ticksBetween(time.low, time.high, std::max(2, static_cast<int>(box.width / (6.0 * font))));
    chart.up.ticks =
        ticksBetween(up.low, up.high, std::max(2, static_cast<int>(box.height / (2.4 * font))));
    return chart;
}

std::vector<Spot> lineOf(const NamedPath& path, const Chart& chart) {
    constexpr double kNearest = 0.5;  // pixels
    std::vector<Spot> spots;
    for (const PathState& state : path.states) {
        const Spot spot{chart.across.scale(state.seconds), chart.up.scale(state.*chart.value)};
        if (spots.empty() || &state == &path.states.back() ||
            std::abs(spot.x - spots.back().x) + std::abs(spot.y - spots.back().y) >= kNearest) {
            spots.push_back(spot);
        }
    }
    return spots;
}

void drawCharts(Canvas& canvas, const PathCharts& charts, const SheetSizes& sizes) {
    for (const Chart& chart : charts.charts) {
        drawPlotFrame(canvas, chart.across, chart.up, sizes.font, PlotGrid::Lines);
        for (std::size_t i = 0; i < charts.paths.size(); ++i) {
            canvas.line(lineOf(charts.paths[i], chart), categoryColor(i), 0.14 * sizes.font);
        }
    }
    // One path needs no legend: the title names it.
    double x = charts.charts.front().across.scale.start + 16.0 * sizes.font;
    const double y = charts.charts.front().up.scale.end - 0.9 * sizes.font;
    for (std::size_t i = 0; charts.paths.size() > 1 && i < charts.paths.size(); ++i) {
        const std::string& name = charts.paths[i].name;
        canvas.line({{x, y - 0.35 * sizes.font}, {x + 2.0 * sizes.font, y - 0.35 * sizes.font}},
                    categoryColor(i), 0.25 * sizes.font);
        canvas.text({x + 2.5 * sizes.font, y}, name, {.size = sizes.font});
        x += 4.5 * sizes.font + textWidth(name, sizes.font);
    }
}

std::string factsOf(const std::vector<NamedPath>& paths, const std::string& unit) {
    std::size_t poses = 0;
    double length = 0.0;
    double fastest = 0.0;
    double time = 0.0;
    for (const NamedPath& path : paths) {
        poses += path.states.size();
        length += path.states.back().distance;
        time += path.states.back().seconds - path.states.front().seconds;
        for (const PathState& state : path.states) {
            fastest = std::max(fastest, state.speed);
        }
    }
    return fmt::format(
        "path over time · {} · {} s · {} {} · "
        "mean speed {} {}/s, fastest {} {}/s",
        groupedCount(poses, "pose", "poses"), fixedText(time, 1), fixedText(length, 2), unit,
        fixedText(time > 0.0 ? length / time : 0.0, 2), unit, fixedText(fastest, 2), unit);
}

/// Adds the charts of height, speed and distance under each other.
/// @param box  of the first; moved below the last
void addCharts(PathCharts& charts, const std::string& unit, Box& box, double font) {
    constexpr double kPlotStep = 14.0;  // in sizes of letters
    const std::pair<double PathState::*, std::string> values[] = {
        {&PathState::height, fmt::format("height [{}]", unit)},
        {&PathState::speed, fmt::format("speed [{}/s]", unit)},
        {&PathState::distance, fmt::format("distance [{}]", unit)}};
    for (const auto& [value, title] : values) {
        charts.charts.push_back(chartOf(charts.paths, value, title, box, font));
        if (value != &PathState::distance) {
            charts.charts.back().across.hasNumbers = false;
            charts.charts.back().across.title.clear();
        }
        box.y += kPlotStep * font;
    }
}

}  // namespace

Sheet pathSheet(const Scene& scene, const PictureRequest& request) {
    constexpr double kPlotHeight = 11.0;  // in sizes of letters
    const SheetSizes sizes(request.width);
    const ScanUnits& units = scene.front().scan->units;
    const auto charts = std::make_shared<PathCharts>();
    double window = 0.0;
    charts->paths = pathsOf(scene, window);
    if (charts->paths.empty()) {
        throw Failure("--path: no scan has a trajectory");
    }
    if (!units.hasDistances()) {
        throw unexpected("--path", "coordinates in " + units.words(),
                         "coordinates in one unit of length");
    }
    const double left = 7.0 * sizes.font;
    Box box{left, sizes.top, sizes.width - left - 3.0 * sizes.font, kPlotHeight * sizes.font};
    const std::string unit = units.label(0);
    addCharts(*charts, unit, box, sizes.font);
    Sheet sheet;
    sheet.title.facts = factsOf(charts->paths, unit);
    sheet.notes.push_back(fmt::format("Speed: straight distance over {} s.", fixedText(window, 2)));
    for (const SceneScan& scan : scene) {
        if (!scan.path.empty()) {
            addClockNote(scan, sheet.notes);
        }
    }
    sheet.width = sizes.width;
    sheet.height = std::ceil(box.y + sizes.font + notesHeight(sheet.notes, sizes));
    sheet.draw = [charts, sizes](Canvas& canvas) { drawCharts(canvas, *charts, sizes); };
    return sheet;
}

}  // namespace ScanHost
