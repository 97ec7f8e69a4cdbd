// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/MobileReport.h"

#include <fmt/format.h>

#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/MobileScan.h"
#include "session/PointSummary.h"
#include "session/PointTimes.h"

namespace ScanHost {

namespace {

/// @param units  of the trajectory
void describeTrajectory(const MobileScan& mobile, const ScanUnits& units, Report& report) {
    Report& trajectory = report.group("trajectory", "trajectory");
    const auto& nodes = mobile.nodes();
    trajectory.addCount("nodes", "nodes", nodes.size());
    addDistance(units, trajectory, "pathLength", "path length", mobile.pathLength(), kMetreDigits);
    trajectory.addSeconds("firstTime", "first node at", nodes.front().time);
    trajectory.addSeconds("lastTime", "last node at", nodes.back().time);
}

void describeTimes(const MobileScan& mobile, Report& report) {
    Range<double> range;
    forEachPointTime(mobile.points(), [&](double seconds) { range.add(seconds); });
    Report& times = report.group("times", "point times");
    times.addSeconds("duration", "duration", mobile.duration());
    describeZero(mobile.clock({}), times);
    Json::Value notes(Json::arrayValue);
    std::string lines;
    for (const std::string& note : mobile.points().getMobileScanData().getNotes()) {
        notes.append(printable(note));
        lines += (lines.empty() ? "" : "; ") + printable(note);
    }
    if (lines.empty()) {
        times.addHidden("notes", notes);
    } else {
        times.add("notes", "noticed", notes, lines);
    }
    if (range.isEmpty()) {
        return;
    }
    times.addSeconds("first", "earliest point", range.low);
    times.addSeconds("last", "latest point", range.high);
    times.addCount("bytesPerPoint", "bytes per point now", mobile.points().getRecordSize());
}

void describeLoadedTrajectory(const ImportedScan& scan, MobileScan& mobile, Report& report,
                              Console& console) {
    try {
        mobile.loadTrajectory();
        if (mobile.nodes().empty()) {
            report.addNone("trajectory", "trajectory", "none");
        } else {
            const bool fits = scan.units.fitTrajectory();
            describeTrajectory(mobile, fits ? scan.units : ScanUnits(), report);
            if (!fits) {
                console.warn(fmt::format(
                    "{}: the points are in {}, the trajectory is taken to be in metres; they are "
                    "not brought together, see --unit",
                    scan.source.file.string(), scan.units.words()));
            }
        }
    } catch (const Failure& failure) {
        if (failure.code() == ExitCode::Cancelled || scan.trajectoryNamed) {
            throw;
        }
        console.warn(failure.what());
        report.addNone("trajectory", "trajectory", "not readable, see the warning");
    }
}

void describeLoadedTimes(MobileScan& mobile, Report& report, Console& console) {
    try {
        if (mobile.loadTimes()) {
            describeTimes(mobile, report);
        } else {
            report.addNone("times", "point times", "none in the file");
        }
    } catch (const Failure& failure) {
        if (failure.code() == ExitCode::Cancelled) {
            throw;
        }
        console.warn(failure.what());
        report.addNone("times", "point times", "not loaded, see the warning");
    }
}

}  // namespace

void describeMobile(const ImportedScan& scan, Report& report, Console& console) {
    MobileScan mobile(scan, console);
    describeLoadedTrajectory(scan, mobile, report, console);
    describeLoadedTimes(mobile, report, console);
}

}  // namespace ScanHost
