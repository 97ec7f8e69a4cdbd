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

std::vector<std::pair<std::string, Ovr::TimeUnit>> timeUnits() {
    std::vector<std::pair<std::string, Ovr::TimeUnit>> units;
    units.reserve(Ovr::kTimeUnits.size());
    for (const Ovr::TimeUnitEntry& entry : Ovr::kTimeUnits) {
        units.emplace_back(entry.name, entry.unit);
    }
    return units;
}

}  // namespace

void declareCommon(Options& options, CommonOptions& target) {
    options.flag("--json", target.json, "Print one JSON document instead of text");
    options.choice("--progress", target.progress, kProgressModes,
                   "Progress as plain lines on standard error, or none; without this option it is "
                   "shown on a terminal only");
}

void declareScan(Options& options, ScanOptions& target) {
    target.files.resize(1);
    options
        .positional("SCAN", target.files.front(), Option::Names::File,
                    fmt::format("{} or {}", pointsFileText("Points file"),
                                projectFileText("scanner project")))
        .required();
    declareScanSettings(options, target);
}

void declareScanSettings(Options& options, ScanOptions& target) {
    options.ordinal("--scan", target.number, "N", "a scan's number, from 1 on",
                    "Which scan of a file or project that holds several, from 1 on");
    options.file(
        "--trajectory", target.trajectory, "FILE",
        fmt::format("Trajectory of a mobile scan instead of the {} next to it", trajectoryNames()));
    options.number("--time-offset", target.timeOffset, "SECONDS",
                   "Added to the points' times to bring them onto the trajectory's clock");
    options.choice("--time-unit", target.timeUnit, timeUnits(),
                   "Unit of the times in the points file (s)");
}

}  // namespace ScanHost
