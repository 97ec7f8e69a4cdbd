// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cstddef>
#include <limits>
#include <optional>

#include <fmt/format.h>

#include "commands/ScanCommand.h"
#include "report/Failure.h"
#include "report/NumberText.h"

namespace ScanHost {

namespace {

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

class NearCommand final : public ScanCommand {
  public:
    std::string name() const override { return "near"; }
    std::string summary() const override {
        return "When the scanner was near a point: the time span of the path around it";
    }

  protected:
    void declareMore(Options& options) override {
        options.point("--point", point_, "The point, world coordinates").required();
        options
            .number("--within", within_, "LENGTH",
                    "How near, in the unit of the coordinates: metres, unless --unit says else")
            .required();
    }
    void checkOptions() const override {
        if (*within_ < 0.0) {
            throw unexpected("--within", shortText(*within_), "0 or more", ExitCode::WrongUsage);
        }
    }
    ScanNeeds needs() const override { return {.trajectory = Need::Required, .duration = true}; }
    void ask(OpenScan& open, Report& report) override {
        const ScanUnits& units = open.scan.units;
        requireDistances(open.scan);
        const Tq_1_1::Vec3d<double> local =
            open.session.root().calcTrafoTo(open.scan.container.get()).transform(point_);
        const auto isNear = [&](const Tq_1_1::Vec3d<double>& position) {
            return distanceBetween(position, local) <= *within_;
        };
        double begin = 0.0;
        double end = 0.0;
        const bool found =
            open.mobile->pointTimes()->getTrajectoryFractionAtPoint(local, isNear, begin, end);
        const Approach approach = nearestApproach(*open.mobile, local);
        report.addPoint("point", "point " + units.brackets(), point_, kMetreDigits, "");
        addDistance(units, report, "within", "within", *within_, kMetreDigits);
        addDistance(units, report, "nearestDistance", "nearest approach", approach.distance,
                    kMetreDigits);
        units.addTo(report);
        report.addSeconds("nearestTime", "at time", open.clock.shown(approach.time));
        if (!found || approach.distance > *within_) {
            report.addNone("span", "span", "none, the path stays farther away");
        } else {
            addSpan(report, begin, end, open);
        }
    }

  private:
    static void requireDistances(const ImportedScan& scan) {
        if (!scan.units.hasDistances()) {
            throw unexpected(scan.source.file.string(), "coordinates in " + scan.units.words(),
                             "one unit of length on all axes: there are no distances else");
        }
    }

    static void addSpan(Report& report, double begin, double end, const OpenScan& open) {
        const double beginTime = open.clock.shown(begin * open.mobile->duration());
        const double endTime = open.clock.shown(end * open.mobile->duration());
        Json::Value span;
        span["beginFraction"] = jsonNumber(begin);
        span["endFraction"] = jsonNumber(end);
        span["beginTime"] = jsonNumber(beginTime);
        span["endTime"] = jsonNumber(endTime);
        report.add(
            "span", "span", span,
            fmt::format("{} .. {} s, fractions {} .. {}", fixedText(beginTime, kSecondDigits),
                        fixedText(endTime, kSecondDigits), fixedText(begin, kSecondDigits),
                        fixedText(end, kSecondDigits)));
    }

    Tq_1_1::Vec3d<double> point_;
    std::optional<double> within_;
};

}  // namespace

std::unique_ptr<Command> makeNearCommand() {
    return std::make_unique<NearCommand>();
}

}  // namespace ScanHost
