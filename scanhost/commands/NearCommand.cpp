// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cstddef>
#include <limits>
#include <optional>

#include "commands/Command.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/MobileScan.h"
#include "session/ModuleSession.h"
#include "session/ProjectImport.h"

namespace ScanHost {

namespace {

constexpr int kMetreDigits = 4;
constexpr int kSecondDigits = 6;

/// The node of the path nearest to a point.
struct Approach {
    double distance = std::numeric_limits<double>::infinity();  ///< [m]
    double time = 0.0;                                          ///< [s] since the first node
};

Approach nearestApproach(const MobileScan& mobile, const Tq_1_1::Vec3d<double>& point) {
    Approach nearest;
    for (const Ovr::VardexLib::TrajectoryNode& node : mobile.nodes()) {
        const double distance = distanceBetween(positionOf(node), point);
        if (distance < nearest.distance) {
            nearest = {distance, node.time - mobile.nodes().front().time};
        }
    }
    return nearest;
}

class NearCommand final : public Command {
  public:
    std::string name() const override { return "near"; }
    std::string summary() const override {
        return "When the scanner was near a point: the time span of the path around it";
    }
    void declare(CLI::App& app) override {
        addScan(app, scan_);
        addPoint(app, "--point", point_, "The point, world coordinates [m]")->required();
        addNumber(app, "--within", within_, "METRES", "How near")->required();
    }
    void run(const CommonOptions& common, Console& console) override {
        if (*within_ < 0.0) {
            throw Failure("--within: found " + shortText(*within_) + ", expected 0 or more",
                          ExitCode::WrongUsage);
        }
        ModuleSession session(common.module);
        const ImportedScan scan = importOne(session, console, scan_);
        MobileScan mobile(scan, console);
        mobile.requireTrajectory();
        mobile.requireDuration();
        const Tq_1_1::Vec3d<double> local =
            session.root().calcTrafoTo(scan.container.get()).transform(point_);
        const auto isNear = [&](const Tq_1_1::Vec3d<double>& position) {
            return distanceBetween(position, local) <= *within_;
        };
        double begin = 0.0;
        double end = 0.0;
        const bool found =
            mobile.pointTimes()->getTrajectoryFractionAtPoint(local, isNear, begin, end);
        const Approach approach = nearestApproach(mobile, local);
        Report report(scan.name);
        report.addHidden("scan", scan.name);
        report.addPoint("point", "point [m]", point_, kMetreDigits, "");
        report.addNumber("within", "within", *within_, kMetreDigits, " m");
        report.addNumber("nearestDistance", "nearest approach", approach.distance, kMetreDigits,
                         " m");
        report.addNumber("nearestTime", "at time", approach.time, kSecondDigits, " s");
        if (!found || approach.distance > *within_) {
            report.addNone("span", "span", "none, the path stays farther away");
        } else {
            addSpan(report, begin, end, mobile.duration());
        }
        console.show(report);
    }

  private:
    static void addSpan(Report& report, double begin, double end, double duration) {
        Json::Value span;
        span["beginFraction"] = jsonNumber(begin);
        span["endFraction"] = jsonNumber(end);
        span["beginTime"] = jsonNumber(begin * duration);
        span["endTime"] = jsonNumber(end * duration);
        report.add("span", "span", span,
                   fixedText(begin * duration, kSecondDigits) + " .. " +
                       fixedText(end * duration, kSecondDigits) + " s, fractions " +
                       fixedText(begin, kSecondDigits) + " .. " + fixedText(end, kSecondDigits));
    }

    ScanOptions scan_;
    Tq_1_1::Vec3d<double> point_;
    std::optional<double> within_;
};

}  // namespace

std::unique_ptr<Command> makeNearCommand() {
    return std::make_unique<NearCommand>();
}

}  // namespace ScanHost
