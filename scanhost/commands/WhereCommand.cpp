// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "commands/ScanCommand.h"
#include "report/NumberText.h"

namespace ScanHost {

namespace {

/// Distance in time to the nearest trajectory node [s].
double distanceToNode(const MobileScan& mobile, double seconds) {
    const double start = mobile.nodes().front().time;
    double nearest = std::numeric_limits<double>::infinity();
    for (const Ovr::VardexLib::TrajectoryNode& node : mobile.nodes()) {
        nearest = std::min(nearest, std::abs(node.time - start - seconds));
    }
    return nearest;
}

/// @param time  as the user gave it [s]
std::vector<Table::Cell> rowOf(const OpenScan& open, const Tq_1_1::Mat4d<double>& toWorld,
                               double time) {
    const MobileScan& mobile = *open.mobile;
    const double seconds = open.clock.taken(time);
    std::vector<Table::Cell> row{{jsonNumber(time), shortText(time)}};
    const std::optional<Tq_1_1::Vec3d<double>> position =
        mobile.pointTimes()->getRecordingPositionForTime(seconds);
    if (!position) {
        row.insert(row.end(), 4, {Json::Value(), "outside"});
        return row;
    }
    const Tq_1_1::Vec3d<double> world = toWorld.transform(*position);
    for (std::size_t i = 0; i < 3; ++i) {
        row.push_back({jsonNumber(world[i]), fixedText(world[i], kMetreDigits)});
    }
    const double away = distanceToNode(mobile, seconds);
    row.push_back({jsonNumber(away), fixedText(away, kSecondDigits)});
    return row;
}

class WhereCommand final : public ScanCommand {
  public:
    std::string name() const override { return "where"; }
    std::string summary() const override {
        return "Where the scanner was at times since the start of the scan";
    }

  protected:
    void declareMore(Options& options) override {
        options.numbers("--at", times_, "SECONDS", "Scan times; one or more").required();
    }
    ScanNeeds needs() const override { return {.trajectory = Need::Required, .duration = true}; }
    void ask(OpenScan& open, Report& report) override {
        report.addSeconds("duration", "duration", open.mobile->duration());
        const ScanUnits& units = open.scan.units;
        units.addTo(report);
        Table table{{{"time", "time [s]"},
                     {"x", axisLabel(units, 0)},
                     {"y", axisLabel(units, 1)},
                     {"z", axisLabel(units, 2)},
                     {"timeToNearestNode", "nearest node away by [s]"}},
                    {}};
        const Tq_1_1::Mat4d<double> toWorld = open.scan.toWorld();
        for (const double seconds : times_) {
            table.rows.push_back(rowOf(open, toWorld, seconds));
        }
        report.addTable("positions", "positions", std::move(table));
    }

  private:
    std::vector<double> times_;
};

}  // namespace

std::unique_ptr<Command> makeWhereCommand() {
    return std::make_unique<WhereCommand>();
}

}  // namespace ScanHost
