// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/PathReport.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "report/NumberText.h"
#include "session/NodePose.h"

namespace ScanHost {

namespace {

/// Gaps and stops that are listed.
constexpr std::size_t kMostListed = 10;
constexpr int kRateDigits = 3;

double timeOf(const PathPlaces& path, std::size_t node) {
    return path.nodes[node].time - path.nodes.front().time;
}

Tq_1_1::Vec3d<double> placeOf(const PathPlaces& path, std::size_t node) {
    return path.toWorld.transform(positionOf(path.nodes[node]));
}

/// Why there are neither lengths nor speeds.
std::string withoutLengths(const PathPlaces& path) {
    return "none, the coordinates are in " + path.units.words();
}

void describeHeights(const PathStats& stats, const PathPlaces& path, Report& report) {
    const double lowest = placeOf(path, stats.lowest).z;
    const double highest = placeOf(path, stats.highest).z;
    Json::Value value;
    value["min"] = jsonNumber(lowest);
    value["max"] = jsonNumber(highest);
    report.add(
        "heights", fmt::format("heights [{}]", path.units.label(2)), value,
        fmt::format("{} .. {}", fixedText(lowest, kMetreDigits), fixedText(highest, kMetreDigits)));
}

void describeRate(const std::string& key, const std::string& label, const PathRate& rate,
                  const std::string& unit, const PathPlaces& path, Report& report) {
    const double time = timeOf(path, rate.at);
    const Tq_1_1::Vec3d<double> place = placeOf(path, rate.at);
    Json::Value value;
    value["median"] = jsonNumber(rate.median);
    value["largest"] = jsonNumber(rate.largest);
    value["time"] = jsonNumber(time);
    value["position"] = jsonPoint(place);
    report.add(
        key, label, value,
        fmt::format("median {}{}, largest {}{} after {} s at {}",
                    fixedText(rate.median, kRateDigits), unit, fixedText(rate.largest, kRateDigits),
                    unit, fixedText(time, kSecondDigits), pointText(place, kMetreDigits)));
}

void describeRates(const PathStats& stats, const PathPlaces& path, Report& report) {
    const std::string timeless = "none, no step takes time";
    if (!path.units.hasDistances()) {
        report.addNone("speed", "speed", withoutLengths(path));
    } else if (!stats.speed) {
        report.addNone("speed", "speed", timeless);
    } else {
        describeRate("speed", "speed", *stats.speed, path.units.suffix() + "/s", path, report);
    }
    if (stats.turning) {
        describeRate("turning", "turning", *stats.turning, " deg/s", path, report);
    } else {
        report.addNone("turning", "turning", timeless);
    }
}

/// The longest stretches, as many as are listed, in the order of the nodes.
std::vector<PathStretch> longestOf(std::vector<PathStretch> stretches, const PathPlaces& path) {
    if (stretches.size() > kMostListed) {
        std::stable_sort(stretches.begin(), stretches.end(), [&](const auto& a, const auto& b) {
            return durationOf(path.nodes, a) > durationOf(path.nodes, b);
        });
        stretches.resize(kMostListed);
        std::sort(stretches.begin(), stretches.end(),
                  [](const auto& a, const auto& b) { return a.first < b.first; });
    }
    return stretches;
}

Table tableOf(const std::vector<PathStretch>& stretches, const PathPlaces& path) {
    Table table{{{"time", "from [s]"},
                 {"duration", "lasting [s]"},
                 {"x", axisLabel(path.units, 0)},
                 {"y", axisLabel(path.units, 1)},
                 {"z", axisLabel(path.units, 2)}},
                {}};
    for (const PathStretch& stretch : stretches) {
        auto& row = table.rows.emplace_back();
        for (const double seconds :
             {timeOf(path, stretch.first), durationOf(path.nodes, stretch)}) {
            row.push_back({jsonNumber(seconds), fixedText(seconds, kSecondDigits)});
        }
        const Tq_1_1::Vec3d<double> place = placeOf(path, stretch.first);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            row.push_back({jsonNumber(place[axis]), fixedText(place[axis], kMetreDigits)});
        }
    }
    return table;
}

/// Adds how many stretches there are and how long they last together, and lists the longest.
/// @param name  of the stretches, "gaps"
/// @param what  makes them so, "above 10 x the median step"
void describeStretches(const std::string& name, const std::string& what,
                       const std::vector<PathStretch>& stretches, const PathPlaces& path,
                       Report& report) {
    double together = 0.0;
    for (const PathStretch& stretch : stretches) {
        together += durationOf(path.nodes, stretch);
    }
    Json::Value value;
    value["count"] = Json::UInt64{stretches.size()};
    value["duration"] = jsonNumber(together);
    const std::string listKey = name + "Listed";
    if (stretches.empty()) {
        report.add(name, name, value, "none " + what);
        report.addHidden(listKey, Json::Value(Json::arrayValue));
        return;
    }
    report.add(name, name, value,
               fmt::format("{} {}, together {} s", stretches.size(), what,
                           fixedText(together, kSecondDigits)));
    const bool isWhole = stretches.size() <= kMostListed;
    report.addTable(listKey, isWhole ? name : fmt::format("the {} longest {}", kMostListed, name),
                    tableOf(longestOf(stretches, path), path));
}

}  // namespace

void describePath(const PathStats& stats, const PathPlaces& path, Report& report) {
    Report& group = report.group("path", "path");
    group.addSeconds("duration", "duration", stats.duration);
    addDistance(path.units, group, "length", "length", stats.length, kMetreDigits);
    describeHeights(stats, path, group);
    describeRates(stats, path, group);
    group.addCountIfAny("timelessSteps", "steps without time", stats.timelessSteps);
    if (stats.medianStep) {
        group.addSeconds("medianStep", "median step", *stats.medianStep);
    } else {
        group.addNone("medianStep", "median step", "none");
    }
    describeStretches("gaps", fmt::format("above {} x the median step", PathStats::kGapFactor),
                      stats.gaps, path, group);
    if (path.units.hasDistances()) {
        describeStretches("stops", "longer than 1 s within 5 cm", stats.stops, path, group);
    } else {
        group.addNone("stops", "stops", withoutLengths(path));
    }
}

}  // namespace ScanHost
