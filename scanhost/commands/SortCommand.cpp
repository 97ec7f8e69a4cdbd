// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>

#include "Tq/Path.h"

#include "kit/PointClock.h"
#include "las/LasWriter.h"

#include "commands/ScanCommand.h"
#include "report/Failure.h"
#include "session/Interrupt.h"
#include "session/PointSummary.h"
#include "session/PointTimes.h"
#include "session/Require.h"

namespace ScanHost {

namespace {

/// Longest wait for the points' write lock [ms].
constexpr int kLockTimeout = 5000;
/// Points between two looks at progress and Ctrl-C.
constexpr std::uint64_t kPointsPerStep = 65536;

/// The finest power of ten [m] with which a LAS file's 32 bits reach every point.
double scaleFor(const PointSummary& summary, const std::array<double, 3>& offset) {
    constexpr double kFinest = 0.00001;
    if (summary.returns == 0) {
        return kFinest;
    }
    double reach = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
        reach = std::max({reach, std::abs(summary.bounds[i].low - offset[i]),
                          std::abs(summary.bounds[i].high - offset[i])});
    }
    double scale = kFinest;
    while (reach / scale > 2.0e9) {
        scale *= 10.0;
    }
    return scale;
}

bool isAdjustedGpsTime(double first, double duration) {
    return Ovr::Formats::clockKind({first, first + duration, false}) ==
           Ovr::Formats::ClockKind::AdjustedGps;
}

class SortCommand final : public ScanCommand {
  public:
    std::string name() const override { return "sort"; }
    std::string summary() const override {
        return "Write the points in the order in which they were measured, as LAS with time";
    }

  protected:
    void declareMore(Options& options) override {
        options
            .file("-o,--output", output_, "OUT.las", "File to write; compressed if it ends in .laz")
            .required();
    }
    ScanNeeds needs() const override {
        return {.trajectory = Need::IfThere, .times = Need::Required};
    }
    void ask(OpenScan& open, Report& report) override {
        Vardex::CorvinMobilePointSet& points = open.mobile->points();
        sortPoints(points, open.scan.name);
        Interrupt::check();
        const double zero = points.getMobileScanData().getTimeZero().value_or(0.0);
        const std::uint64_t written = write(open.scan, points, zero, open.console);
        report.addText("file", "written to", output_.string());
        report.addCount("points", "points", written);
        report.addCount("sharingTime", "sharing their time with another", countSharedTimes(points));
        report.addSeconds("timeZero", "scan time 0 is written as", zero);
        report.addText("order", "order",
                       "by time; points of one time are in no particular order, and places in "
                       "the grid are ranks in time, no longer those of measurement");
    }

  private:
    static void sortPoints(Vardex::CorvinMobilePointSet& points, const std::string& name) {
        const Hx::PointWriteLock lock = points.lockPoints(kLockTimeout);
        if (!lock.isHeld()) {
            throw Failure(name + ": the points are in use");
        }
        points.sortScanPointsByTime(lock);
    }

    std::uint64_t write(const ImportedScan& scan, const Vardex::CorvinMobilePointSet& points,
                        double zero, Console& console) const {
        const Tq_1_1::Mat4d<double> toWorld = scan.toWorld();
        const PointSummary summary = summarize(points, toWorld);
        Ovr::Formats::LasWriterSettings settings;
        settings.expectedCount = points.getNumPoints();
        settings.colored = summary.withColor > 0;
        settings.offset = {toWorld(0, 3), toWorld(1, 3), toWorld(2, 3)};
        settings.scale.fill(scaleFor(summary, settings.offset));
        settings.adjustedTime = isAdjustedGpsTime(zero, points.getMaxScanPointTime());
        settings.generatingSoftware = "scanhost";
        settings.compress = Tq_1_1::lowerCaseExtension(output_) == "laz";
        Ovr::Formats::LasWriter writer;
        requireOk(writer.open(output_, settings));
        const ProgressTask task(console.progress(), output_.string() + ": writing points");
        const std::uint64_t count = points.getNumPoints();
        for (std::uint64_t index = 0; index < count; ++index) {
            if (index % kPointsPerStep == 0) {
                Interrupt::check();
                if (console.progress()) {
                    console.progress()->setFraction(static_cast<double>(index) /
                                                    static_cast<double>(count));
                }
            }
            requireOk(writer.write(lasPoint(points, index, toWorld, zero)));
        }
        Interrupt::check();
        requireOk(writer.finish());
        return writer.count();
    }

    static Ovr::Formats::LasPoint lasPoint(const Vardex::CorvinMobilePointSet& points,
                                           std::uint64_t index,
                                           const Tq_1_1::Mat4d<double>& toWorld, double zero) {
        const Hx::PointSet::ScanPt& point = points.getScanPt(index);
        Ovr::Formats::LasPoint las;
        las.position = toWorld.transform(positionOf(point));
        las.time = zero + timeAt(points, index);
        // A record with a colour and no reflection of its own has no intensity to write.
        if (points.hasSeparateReflection() || !point.hasColor()) {
            las.intensity = points.getReflection(index);
        }
        if (point.hasColor()) {
            for (std::size_t i = 0; i < las.color.size(); ++i) {
                las.color[i] = Ovr::Formats::wideChannel(point.color[i]);
            }
        }
        return las;
    }

    std::filesystem::path output_;
};

}  // namespace

std::unique_ptr<Command> makeSortCommand() {
    return std::make_unique<SortCommand>();
}

}  // namespace ScanHost
