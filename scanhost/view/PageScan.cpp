// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "view/PageScan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include <fmt/format.h>

#include "report/Failure.h"
#include "session/Interrupt.h"

namespace ScanHost {

namespace {

constexpr std::uint64_t kPointsBetweenLooks = 1U << 16U;  // for Ctrl-C

bool isNear(const PageScan& scan, const Tq_1_1::Vec3d<double>& world) {
    constexpr double kReach = kPointStep * std::numeric_limits<std::int32_t>::max();
    const Tq_1_1::Vec3d<double> away = world - scan.origin;
    // Not a number is not near.
    return std::abs(away.x) < kReach && std::abs(away.y) < kReach && std::abs(away.z) < kReach;
}

/// The middle of a scan's points, whole metres: per axis the median of some of them, so that
/// points far off do not move it.
Tq_1_1::Vec3d<double> middleOf(const ImportedScan& scan) {
    constexpr std::uint64_t kSamples = 10000;
    const Hx::PointSet& points = *scan.pointSet;
    const Tq_1_1::Mat4d<double> toWorld = scan.toWorld();
    std::array<std::vector<double>, 3> samples;
    const std::uint64_t step = std::max<std::uint64_t>(1, points.getNumPoints() / kSamples);
    for (std::uint64_t index = 0; index < points.getNumPoints(); index += step) {
        const Hx::PointSet::ScanPt& point = points.getScanPt(index);
        if (isReturn(points, point)) {
            const Tq_1_1::Vec3d<double> world = toWorld.transform(positionOf(point));
            for (std::size_t axis = 0; axis < 3; ++axis) {
                samples[axis].push_back(world[axis]);
            }
        }
    }
    std::array<double, 3> middle{toWorld(0, 3), toWorld(1, 3), toWorld(2, 3)};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (!samples[axis].empty()) {
            const auto half =
                samples[axis].begin() + static_cast<std::ptrdiff_t>(samples[axis].size() / 2);
            std::nth_element(samples[axis].begin(), half, samples[axis].end());
            middle[axis] = *half;
        }
    }
    return {std::round(middle[0]), std::round(middle[1]), std::round(middle[2])};
}

/// Runs a step that the page can do without. @return whether it was done
bool tryTo(const std::function<void()>& load, bool needed, Console& console) {
    try {
        load();
        return true;
    } catch (const Failure& failure) {
        if (failure.code() == ExitCode::Cancelled || needed) {
            throw;
        }
        console.warn(failure.what());
        return false;
    }
}

void loadMobile(PageScan& page, Console& console) {
    MobileScan& mobile = page.mobile.emplace(page.scan, console);
    bool hasNodes = false;
    tryTo(
        [&] {
            mobile.loadTrajectory();
            hasNodes = !mobile.nodes().empty();
        },
        page.scan.trajectoryNamed, console);
    if (hasNodes && !page.scan.units.fitTrajectory()) {
        hasNodes = false;
        console.warn(fmt::format(
            "{}: the points are in {}, the trajectory is taken to be in metres and left out, see "
            "--unit",
            page.scan.source.file.string(), page.scan.units.words()));
    }
    tryTo([&] { page.hasTimes = mobile.loadTimes(); }, false, console);
    if (hasNodes) {
        page.hasTrajectory = tryTo([&] { mobile.requireDuration(); }, false, console) &&
                             mobile.pointTimes()->getRecordingPositionForTime(0.0).has_value();
    }
}

}  // namespace

PageScan loadPageScan(const ImportedScan& scan, const std::string& address, Console& console) {
    PageScan page{scan, address, {}, false, false, {}, {}, 0};
    if (MobileScan::isMobile(scan)) {
        loadMobile(page, console);
    } else {
        remarkOnStance(scan, console);
    }
    page.summary = summarize(*scan.pointSet, scan.toWorld());
    page.origin = middleOf(scan);
    std::uint64_t near = 0;
    forEachPagePoint(page, [&](std::uint64_t, const Tq_1_1::Vec3d<double>&) {
        ++near;
        return true;
    });
    page.tooFar = page.summary.returns - near;
    return page;
}

bool forEachPagePoint(
    const PageScan& scan,
    const std::function<bool(std::uint64_t index, const Tq_1_1::Vec3d<double>& world)>& visit) {
    const Hx::PointSet& points = *scan.scan.pointSet;
    const Tq_1_1::Mat4d<double> toWorld = scan.scan.toWorld();
    const std::uint64_t count = points.getNumPoints();
    for (std::uint64_t index = 0; index < count; ++index) {
        if (index % kPointsBetweenLooks == 0) {
            Interrupt::check();
        }
        const Hx::PointSet::ScanPt& point = points.getScanPt(index);
        if (!isReturn(points, point)) {
            continue;
        }
        const Tq_1_1::Vec3d<double> world = toWorld.transform(positionOf(point));
        if (isNear(scan, world) && !visit(index, world)) {
            return false;
        }
    }
    return true;
}

}  // namespace ScanHost
