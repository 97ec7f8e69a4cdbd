// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "commands/SharedOptions.h"

#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "session/KnownFiles.h"

namespace ScanHost {

namespace {

const std::vector<std::pair<std::string, ProgressMode>> kProgressModes{
    {"plain", ProgressMode::Plain}, {"none", ProgressMode::None}};

const std::vector<std::pair<std::string, Ovr::Formats::UnitKind>> kUnits{
    {"m", Ovr::Formats::UnitKind::Metre},
    {"ft", Ovr::Formats::UnitKind::Foot},
    {"us-ft", Ovr::Formats::UnitKind::UsSurveyFoot},
    {"deg", Ovr::Formats::UnitKind::Degree}};

std::vector<std::pair<std::string, Ovr::TimeUnit>> timeUnits() {
    std::vector<std::pair<std::string, Ovr::TimeUnit>> units;
    units.reserve(Ovr::kTimeUnits.size());
    for (const Ovr::TimeUnitEntry& entry : Ovr::kTimeUnits) {
        units.emplace_back(entry.name, entry.unit);
    }
    return units;
}

std::vector<std::pair<std::string, Ovr::Clock>> clocks() {
    std::vector<std::pair<std::string, Ovr::Clock>> clocks;
    clocks.reserve(Ovr::kClocks.size());
    for (const Ovr::ClockEntry& entry : Ovr::kClocks) {
        clocks.emplace_back(entry.name, entry.clock);
    }
    return clocks;
}

}  // namespace

void declareCommon(Options& options, CommonOptions& target) {
    options.flag("--json", target.json, "Print one JSON document instead of text");
    options.flag("--quiet", target.quiet, "Print no warnings and no progress");
    options.flag("--strict", target.strict,
                 "End with exit code 3 when there was something to warn of, after all is done");
    options.choice("--progress", target.progress, kProgressModes,
                   "Progress as plain lines on standard error, or none; without this option it is "
                   "shown on a terminal only");
}

void declareForce(Options& options, OutputRules& target) {
    options.flag("--force", target.force, "Replace files that are there; never one that is read");
}

void declareHost(Options& options, bool& target) {
    options.flag("--host", target, "Show what the module says to a host, too");
}

void declareScan(Options& options, ScanOptions& target) {
    declareScanFile(options, target);
    declareScanSettings(options, target);
}

void declareScanFile(Options& options, ScanOptions& target) {
    target.files.resize(1);
    options
        .positional("SCAN", target.files.front(), Option::Names::File,
                    fmt::format("{} or {}", pointsFileText("Points file"),
                                projectFileText("scanner project")))
        .required();
    declareLenient(options, target);
}

void declareScanFiles(Options& options, ScanOptions& target) {
    options
        .positionals(
            "FILE", target.files, Option::Names::File,
            fmt::format("{} and {}, all of one project with one origin",
                        pointsFileText("Points files"), projectFileText("scanner projects")))
        .required();
    declareLenient(options, target);
}

void declareLenient(Options& options, ScanOptions& target) {
    options.flag("--lenient", target.lenient,
                 "Read a damaged file, or one with fewer or more points than it says, as far as it "
                 "goes");
}

void declareScanNumber(Options& options, ScanOptions& target) {
    options.ordinal("--scan", target.number, "N", "a scan's number, from 1 on",
                    "Which scan of a file or project that holds several, from 1 on");
}

void declareScanSettings(Options& options, ScanOptions& target) {
    declareScanNumber(options, target);
    options.file(
        "--trajectory", target.trajectory, "FILE",
        fmt::format("Trajectory of a mobile scan instead of the {} next to it", trajectoryNames()));
    options.flag("--no-trajectory", target.withoutTrajectory,
                 "Take no trajectory, whatever lies next to the points");
    options.flag("--sort-trajectory", target.sortTrajectory,
                 "Put the poses into the order of their times");
    options.number("--time-offset", target.timeOffset, "SECONDS",
                   "Added to the points' times to bring them onto the trajectory's clock");
    declareTimeUnit(options, target);
    options.choice("--clock", target.clock, clocks(),
                   "What the points' times count from; with --trajectory-clock they are brought "
                   "onto the trajectory's clock, leap seconds included");
    options.choice("--trajectory-unit", target.trajectoryUnit, timeUnits(),
                   "Unit of the times in the trajectory (what its columns say, else s)");
    options.choice("--trajectory-clock", target.trajectoryClock, clocks(),
                   "What the trajectory's times count from");
    options.choice("--unit", target.unit, kUnits,
                   "The unit of all coordinates, of points and trajectory, and of lengths that are "
                   "given and printed; else points have what their file says, or metres, and "
                   "trajectories metres");
    options.count("--week", target.week, "N", "The GPS week that gps-week times count in");
}

void declareTimes(Options& options, TimeOptions& target) {
    const Option& absolute =
        options.flag("--absolute", target.absolute,
                     "Print and take times as the points file counts them, not as scan times");
    options
        .number("--time-origin", target.origin, "SECONDS",
                "Print and take times from this time of the points file's clock on")
        .excludes(absolute);
}

void declareTimeUnit(Options& options, ScanOptions& target) {
    options.choice("--time-unit", target.timeUnit, timeUnits(),
                   "Unit of the times in the points file (s)");
}

}  // namespace ScanHost
