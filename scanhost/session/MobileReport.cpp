// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/MobileReport.h"

#include <fmt/format.h>

#include "kit/ClockGuess.h"
#include "kit/PointClock.h"

#include "report/Failure.h"
#include "report/NumberText.h"

namespace ScanHost {

MobileReport::MobileReport(const ImportedScan& scan, Console& console)
    : scan_(scan), console_(console), mobile_(scan, console) {
    loadTrajectory();
    loadTimes();
}

void MobileReport::loadTrajectory() {
    try {
        mobile_.loadTrajectory();
        noPath_ = mobile_.nodes().empty() ? "none" : "";
    } catch (const Failure& failure) {
        if (failure.code() == ExitCode::Cancelled || scan_.trajectoryNamed) {
            throw;
        }
        console_.warn(failure.what());
        noPath_ = "not readable, see the warning";
        noTimes_ = "not loaded, see the warning";
    }
}

void MobileReport::loadTimes() {
    if (!noTimes_.empty()) {
        return;  // they count from the trajectory's first node
    }
    try {
        hasTimes_ = mobile_.loadTimes();
        noTimes_ = "none in the file";
    } catch (const Failure& failure) {
        if (failure.code() == ExitCode::Cancelled) {
            throw;
        }
        console_.warn(failure.what());
        noTimes_ = "not loaded, see the warning";
    }
}

void MobileReport::describeClock(std::optional<Ovr::Clock> said, Report& report) const {
    if (hasTimes_) {
        ScanClock clock = mobile_.clock({});
        Ovr::Formats::TimeRange times;
        times.add(clock.zero());
        times.add(clock.zero() + mobile_.duration());
        if (said && Ovr::Formats::guessClock(times).isOnly(*said)) {
            clock.assume(*said);
        }
        describeZero(clock, report);
    } else {
        report.addHidden("timeZero", Json::Value());
    }
}

void MobileReport::describeTimes(const Range<double>& range, Report& report) const {
    if (!hasTimes_) {
        report.addNone("times", "point times", noTimes_);
        return;
    }
    Report& times = report.group("times", "point times");
    times.addSeconds("duration", "duration", mobile_.duration());
    Json::Value notes(Json::arrayValue);
    std::string lines;
    for (const std::string& note : mobile_.points().getMobileScanData().getNotes()) {
        notes.append(printable(note));
        lines += (lines.empty() ? "" : "; ") + printable(note);
    }
    if (lines.empty()) {
        times.addHidden("notes", notes);
    } else {
        times.add("notes", "noticed", notes, lines);
    }
    if (!range.isEmpty()) {
        times.addSeconds("first", "earliest point", range.low);
        times.addSeconds("last", "latest point", range.high);
    }
}

void MobileReport::describePath(const Box& points, Report& report) const {
    if (!noPath_.empty()) {
        report.addNone("trajectory", "trajectory", noPath_);
        return;
    }
    const bool fits = scan_.units.fitTrajectory();
    Report& trajectory = report.group("trajectory", "trajectory");
    const auto& nodes = mobile_.nodes();
    trajectory.addCount("nodes", "nodes", nodes.size());
    addDistance(fits ? scan_.units : ScanUnits(), trajectory, "pathLength", "path length",
                mobile_.pathLength(), kMetreDigits);
    trajectory.addSeconds("firstTime", "first node at", nodes.front().time);
    trajectory.addSeconds("lastTime", "last node at", nodes.back().time);
    if (fits) {
        remarkOnFarPath(scan_, points, nodes, console_);
    } else {
        console_.warn(fmt::format(
            "{}: the points are in {}, the trajectory is taken to be in metres; they are not "
            "brought together, see --unit",
            scan_.source.file.string(), scan_.units.words()));
    }
}

}  // namespace ScanHost
