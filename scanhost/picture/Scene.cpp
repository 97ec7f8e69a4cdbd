// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/Scene.h"

#include <cmath>

#include <fmt/format.h>

#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/MobileScan.h"

namespace ScanHost {

namespace {

bool isFinite(const PathNode& node) {
    return std::isfinite(node.seconds) && std::isfinite(node.position.x) &&
           std::isfinite(node.position.y) && std::isfinite(node.position.z);
}

std::vector<PathNode> pathOf(const MobileScan& mobile, const Tq_1_1::Mat4d<double>& toWorld) {
    std::vector<PathNode> path;
    path.reserve(mobile.nodes().size());
    for (const Ovr::VardexLib::TrajectoryNode& node : mobile.nodes()) {
        const PathNode placed{node.time - mobile.nodes().front().time,
                              toWorld.transform(positionOf(node))};
        if (isFinite(placed)) {
            path.push_back(placed);
        }
    }
    return path;
}

/// Passes a Failure on when the user asked for what failed, or for the end.
void warnOrThrow(const Failure& failure, bool asked, Console& console) {
    if (asked || failure.code() == ExitCode::Cancelled) {
        throw failure;
    }
    console.warn(failure.what());
}

void loadMobile(SceneScan& shown, bool withTimes, Console& console) {
    MobileScan mobile(*shown.scan, console);
    try {
        mobile.loadTrajectory();
        if (shown.scan->units.fitTrajectory()) {
            shown.path = pathOf(mobile, shown.toWorld);
        } else if (!mobile.nodes().empty()) {
            console.warn(fmt::format(
                "{}: the points are in {}, the trajectory is taken to be in metres; it is not "
                "drawn, see --unit",
                shown.scan->source.file.string(), shown.scan->units.words()));
        }
    } catch (const Failure& failure) {
        warnOrThrow(failure, shown.scan->trajectoryNamed, console);
    }
    if (withTimes) {
        try {
            shown.hasTimes = mobile.loadTimes();
        } catch (const Failure& failure) {
            warnOrThrow(failure, false, console);
        }
    }
    shown.clock = shown.hasTimes || !shown.path.empty() ? mobile.clock({}) : ScanClock();
}

StanceMark markOf(const Tq_1_1::Mat4d<double>& pose) {
    const Tq_1_1::Vec3d<double> heading{pose(0, 0), pose(1, 0), pose(2, 0)};
    const double length = std::hypot(heading.x, heading.y, heading.z);
    return {{pose(0, 3), pose(1, 3), pose(2, 3)},
            {heading.x / length, heading.y / length, heading.z / length}};
}

}  // namespace

void requireOneUnit(const std::vector<ImportedScan>& scans) {
    for (const ImportedScan& scan : scans) {
        if (scan.units.words() != scans.front().units.words()) {
            throw unexpected(
                scan.source.file.string(),
                fmt::format("{} in {} and {} in {}", scans.front().name,
                            scans.front().units.words(), scan.name, scan.units.words()),
                "scans in one unit, see --unit");
        }
    }
}

Scene openScene(const std::vector<ImportedScan>& scans, bool withTimes, Console& console) {
    Scene scene;
    scene.reserve(scans.size());
    for (const ImportedScan& scan : scans) {
        SceneScan& shown = scene.emplace_back();
        shown.scan = &scan;
        shown.name = printable(scan.name);
        shown.toWorld = scan.toWorld();
        shown.mobile = std::dynamic_pointer_cast<Vardex::CorvinMobilePointSet>(scan.pointSet);
        if (shown.mobile) {
            loadMobile(shown, withTimes, console);
        } else {
            shown.stance = markOf(shown.toWorld);
        }
    }
    return scene;
}

}  // namespace ScanHost
