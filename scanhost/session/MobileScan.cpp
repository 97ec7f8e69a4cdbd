// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/MobileScan.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <fmt/format.h>

#include "Hx/ErrorConversion.h"
#include "Ovr/Vardex/CorvinMobileScanData.h"

#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Interrupt.h"
#include "session/KnownFiles.h"
#include "session/PathStats.h"
#include "session/Require.h"

namespace ScanHost {

MobileScan::MobileScan(const ImportedScan& scan, Console& console)
    : scan_(scan),
      console_(console),
      points_(std::dynamic_pointer_cast<Vardex::CorvinMobilePointSet>(scan.pointSet)) {
    if (!points_) {
        throw unexpected(scan.source.file.string(), "a stationary scan", "a mobile scan");
    }
}

bool MobileScan::isMobile(const ImportedScan& scan) {
    return std::dynamic_pointer_cast<Vardex::CorvinMobilePointSet>(scan.pointSet) != nullptr;
}

void MobileScan::loadTrajectory() {
    auto& scanData = points_->getMobileScanData();
    if (const Ovr::ErrorPtr error = scanData.fetchTrajectory(nodes_)) {
        console_.warn(scanData.getWarnings());
        throw Failure(error->message() +
                      (scan_.trajectoryNamed ? "" : "; --no-trajectory goes on without it"));
    }
    console_.warn(scanData.getWarnings());
    if (!areInOrderOfTime(nodes())) {
        console_.warn(scan_.source.file.string() +
                      ": the poses are taken as they come, see --sort-trajectory");
    }
}

void MobileScan::requireTrajectory() {
    loadTrajectory();
    if (nodes().empty()) {
        throw unexpected(scan_.source.file.string(), "no trajectory",
                         fmt::format("a {} next to it that holds poses, or --trajectory FILE",
                                     trajectoryNames()));
    }
}

bool MobileScan::loadTimes() {
    const ProgressTask task(console_.progress(), scan_.name + ": reading times");
    Hx::clearLastErrorMessage();
    const Hx::IOMessages::IOResult result = pointTimes()->loadScanPtTimes();
    if (result == Hx::IOMessages::IO_NO_TIMES_IN_FILE) {
        return false;
    }
    if (result != Hx::IOMessages::IO_OK) {
        console_.warn(points_->getIScanData().getWarnings());  // what was found on the way
    }
    requireOk(result, scan_.source.file.string());
    console_.warn(points_->getIScanData().getWarnings());
    Interrupt::check();
    return true;
}

void MobileScan::requireTimes() {
    if (!loadTimes()) {
        throw Failure(Hx::lastErrorMessage());
    }
}

void MobileScan::requireDuration() {
    double last = nodes().front().time;
    for (const Ovr::VardexLib::TrajectoryNode& node : nodes()) {
        last = std::max(last, node.time);
    }
    points_->setMaxScanPointTime(last - nodes().front().time);
}

void MobileScan::cutTrajectory(double from, double to) {
    const double zero = nodes().front().time;
    std::vector<Ovr::VardexLib::TrajectoryNode> kept;
    for (const Ovr::VardexLib::TrajectoryNode& node : nodes()) {
        if (isInStretch(node.time - zero, from, to)) {
            kept.push_back(node);
        }
    }
    if (kept.empty()) {
        throw unexpected(scan_.source.file.string(), "no node between the times asked for",
                         fmt::format("some of the scan times 0 .. {} s",
                                     fixedText(nodes().back().time - zero, kSecondDigits)));
    }
    points_->getMobileScanData().setTrajectoryNodes(kept);
    loadTrajectory();
}

ScanClock MobileScan::clock(const TimeOptions& options) const {
    const std::optional<double> zero = points_->getMobileScanData().getTimeZero();
    if (zero) {
        return ScanClock(scan_.source.clock, *zero, options);
    }
    return nodes_ && !nodes_->empty() ? ScanClock(scan_.source.clock, nodes_->front().time, options)
                                      : ScanClock();
}

double MobileScan::pathLength() const {
    double length = 0.0;
    for (std::size_t i = 1; i < nodes().size(); ++i) {
        length += distanceBetween(positionOf(nodes()[i - 1]), positionOf(nodes()[i]));
    }
    return length;
}

std::shared_ptr<Hx::IScanPointTimes> MobileScan::pointTimes() const {
    const auto find =
        Hx::IScanPointTimes::Operations::hasScanPointTimes.find(points_->getClassType());
    std::shared_ptr<Hx::IScanPointTimes> times = find != nullptr ? find(points_) : nullptr;
    if (!times) {
        throw Failure(scan_.name + ": the module registered no point times for the scan's class");
    }
    return times;
}

bool isInStretch(double seconds, double from, double to) {
    constexpr double kHalfMicrosecond = 0.5e-6;
    return seconds >= from - kHalfMicrosecond && seconds <= to + kHalfMicrosecond;
}

double distanceBetween(const Tq_1_1::Vec3d<double>& a, const Tq_1_1::Vec3d<double>& b) {
    const Tq_1_1::Vec3d<double> d = a - b;
    return std::sqrt(d.x * d.x + d.y * d.y + d.z * d.z);
}

}  // namespace ScanHost
