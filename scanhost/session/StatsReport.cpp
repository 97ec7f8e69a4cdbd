// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/StatsReport.h"

#include <optional>
#include <string>

#include <fmt/format.h>

#include "Ovr/FormatRegistry.h"
#include "kit/InputFile.h"
#include "las/LasDamage.h"
#include "las/LasRanges.h"

#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Interrupt.h"
#include "session/MobileScan.h"
#include "session/PathReport.h"
#include "session/PathStats.h"
#include "session/Require.h"
#include "session/ScanStats.h"

namespace ScanHost {

namespace {

void describePerSecond(const ScanStats& stats, Report& report) {
    const double seconds = stats.times.isEmpty() ? 0.0 : stats.times.high - stats.times.low;
    if (!(seconds > 0.0)) {
        report.addNone("perSecond", "points per second", "none, the points have one time");
        return;
    }
    const double mean = static_cast<double>(stats.timed) / seconds;
    Json::Value value;
    value["mean"] = jsonNumber(mean);
    std::string text = "mean " + fixedText(mean, 1);
    value["fewest"] = value["most"] = Json::Value();
    if (!stats.perSecond.isEmpty()) {
        value["fewest"] = Json::UInt64{stats.perSecond.low};
        value["most"] = Json::UInt64{stats.perSecond.high};
        text +=
            fmt::format(", {} to {} in whole seconds", stats.perSecond.low, stats.perSecond.high);
    }
    report.add("perSecond", "points per second", value, text);
}

void describeDistances(const ScanStats& stats, const ScanUnits& units, Report& report) {
    if (!stats.distances) {
        report.addNone("distances", "from the scanner",
                       units.fitTrajectory() && units.hasDistances()
                           ? "none, no point was measured along the path"
                           : "none, the coordinates are in " + units.words());
        return;
    }
    Json::Value value;
    std::string text;
    const auto add = [&](const char* name, double distance) {
        value[name] = jsonNumber(distance);
        text += fmt::format("{}{} {}{}", text.empty() ? "" : ", ", name,
                            fixedText(distance, kMetreDigits), units.suffix());
    };
    add("least", stats.distances->least);
    add("median", stats.distances->median);
    add("largest", stats.distances->largest);
    report.add("distances", "from the scanner", value, text);
}

/// Where it does not fit the points, a trajectory is taken to be in metres.
ScanUnits pathUnits(const ImportedScan& scan) {
    return scan.units.fitTrajectory() ? scan.units : ScanUnits();
}

void describePoints(const ImportedScan& scan, const MobileScan& mobile,
                    const std::optional<PathStats>& path, Report& report) {
    if (!mobile.points().getMobileScanData().getTimeZero()) {
        report.addNone("points", "points", "none of them has a time");
        return;
    }
    Report& group = report.group("points", "points");
    if (!path) {
        describePerSecond(scanStats(mobile.points(), {}), group);
        return;
    }
    if (!areInOrderOfTime(mobile.nodes())) {
        describePerSecond(scanStats(mobile.points(), {}), group);
        group.addNone("distances", "from the scanner",
                      "none, the path is not in the order of time, see --sort-trajectory");
        return;
    }
    const bool hasDistances = scan.units.fitTrajectory() && scan.units.hasDistances();
    const ScanStats stats = scanStats(mobile.points(), {mobile.nodes(), path->stops, hasDistances});
    describePerSecond(stats, group);
    describeDistances(stats, scan.units, group);
    if (pathUnits(scan).hasDistances()) {
        group.addCount("still", "while it stood still", stats.still);
    } else {
        group.addNone("still", "while it stood still", "not known, see the stops");
    }
    group.addCountIfAny("atZero", "not counted, at scan time 0", stats.atZero);
    group.addCountIfAny("outside", "after the last pose", stats.outside);
}

PathStats describeOwnPath(const ImportedScan& scan, const MobileScan& mobile, Report& report) {
    const PathPlaces path{mobile.nodes(), pathUnits(scan), scan.toWorld()};
    PathStats stats =
        pathStats(path.nodes, path.units.hasDistances()
                                  ? std::optional(kStopRadius / path.units.horizontal.factor)
                                  : std::nullopt);
    describePath(stats, path, report);
    return stats;
}

void describeRanges(const Ovr::Formats::LasHeader& header, const Ovr::Formats::LasRanges& ranges,
                    Report& report) {
    if (ranges.isEmpty()) {
        report.addNone("scanAngle", "scan angle", "none, no point");
        report.addNone("pointSource", "point source", "none, no point");
        return;
    }
    const double low = lasScanAngle(header, ranges.lowestAngle);
    const double high = lasScanAngle(header, ranges.highestAngle);
    Json::Value angle;
    angle["min"] = low;
    angle["max"] = high;
    report.add("scanAngle", "scan angle [deg]", angle,
               fmt::format("{} .. {}", shortText(low), shortText(high)));
    Json::Value source;
    source["min"] = ranges.lowestSource;
    source["max"] = ranges.highestSource;
    report.add("pointSource", "point source", source,
               fmt::format("{} .. {}", ranges.lowestSource, ranges.highestSource));
}

void describeLasRanges(const ImportedScan& scan, Report& report, Console& console) {
    const auto format = Ovr::FormatRegistry::the().find(scan.source.file);
    if (!format || format->name() != "LAS") {
        return;
    }
    Ovr::Formats::InputFile file;
    Ovr::Formats::LasHeader header;
    Ovr::Formats::LasRanges ranges;
    Ovr::Remarks told;
    const Interrupt interrupt{};
    requireOk(file.open(scan.source.file));
    requireOk(readLasHeader(file, header, told, scan.source.lenient));
    if (scan.source.lenient) {
        requireOk(shortenToReadable(file, header, told, {nullptr, &interrupt}));
    }
    const ProgressTask task(console.progress(), scan.name + ": looking at scan angles");
    requireOk(findLasRanges(file, header, ranges, {console.progress().get(), &interrupt}));
    describeRanges(header, ranges, report.group("las", "LAS fields"));
}

/// @return whether the scan has a trajectory that can be read
bool hasPath(MobileScan& mobile) {
    try {
        mobile.loadTrajectory();
        return !mobile.nodes().empty();
    } catch (const Failure& failure) {
        if (failure.code() == ExitCode::Cancelled) {
            throw;
        }
        return false;
    }
}

}  // namespace

void describeStats(const ImportedScan& scan, Report& report, Console& console) {
    if (!MobileScan::isMobile(scan)) {
        return;
    }
    Report& group = report.group("statistics", "statistics");
    MobileScan mobile(scan, console);
    std::optional<PathStats> path;
    if (hasPath(mobile)) {
        path = describeOwnPath(scan, mobile, group);
    } else {
        group.addNone("path", "path", "none");
    }
    describePoints(scan, mobile, path, group);
    describeLasRanges(scan, group, console);
}

}  // namespace ScanHost
