// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cmath>
#include <limits>
#include <optional>

#include <fmt/format.h>

#include "Hx/PC2TimeFilter.h"

#include "commands/ScanCommand.h"
#include "report/Failure.h"
#include "report/NumberText.h"

namespace ScanHost {

namespace {

/// The fraction of the scan at a scan time. Rounded away from the stretch's inside by as much as
/// needed, or a node at exactly that time would fall out of it.
/// @param direction  -1 for a stretch's start, 1 for its end
double fractionOf(double seconds, double duration, double direction) {
    const double outward = direction * std::numeric_limits<double>::infinity();
    double fraction = seconds / duration;
    for (int steps = 0; steps < 4 && (fraction * duration - seconds) * direction < 0.0; ++steps) {
        fraction = std::nextafter(fraction, outward);
    }
    return fraction;
}

constexpr int kRotationDigits = 6;

std::vector<Table::Column> columnsOf(const ScanUnits& units) {
    return {{"time", "time [s]"},
            {"x", axisLabel(units, 0)},
            {"y", axisLabel(units, 1)},
            {"z", axisLabel(units, 2)},
            {"qx", "qx"},
            {"qy", "qy"},
            {"qz", "qz"},
            {"qw", "qw"}};
}

/// Fractions of the scan.
struct Stretch {
    double start;
    double end;
};

class PathCommand final : public ScanCommand {
  public:
    std::string name() const override { return "path"; }
    std::string summary() const override {
        return "The poses of the scanner in a stretch of the scan";
    }

  protected:
    void declareMore(Options& options) override {
        const Option& from =
            options.number("--from", from_, "FRACTION", "Start as a fraction of the scan (0)");
        const Option& to =
            options.number("--to", to_, "FRACTION", "End as a fraction of the scan (1)");
        options.number("--from-time", fromTime_, "SECONDS", "Start as a scan time").excludes(from);
        options.number("--to-time", toTime_, "SECONDS", "End as a scan time").excludes(to);
        declareHost(options, host_);
    }
    ScanNeeds needs() const override { return {.trajectory = Need::Required, .duration = true}; }
    void ask(OpenScan& open, Report& report) override {
        const double duration = open.mobile->duration();
        const Stretch stretch = stretchOf(open, duration);
        report.addNumber("from", "from fraction", stretch.start, kSecondDigits, "");
        report.addNumber("to", "to fraction", stretch.end, kSecondDigits, "");
        report.addSeconds("fromTime", "from time", open.clock.shown(stretch.start * duration));
        report.addSeconds("toTime", "to time", open.clock.shown(stretch.end * duration));
        addNodes(open, stretch.start * duration, stretch.end * duration, report);
        if (host_) {
            addHostPath(open.mobile->pointTimes()->getSelectedTrajectory(
                            Hx::PC2TimeFilter(stretch.start, stretch.end)),
                        open.scan.toWorld(), open.scan.units,
                        report.group("host", "what the module gives a host"));
        }
    }

  private:
    Stretch stretchOf(const OpenScan& open, double duration) const {
        if ((fromTime_ || toTime_) && !(duration > 0.0)) {
            throw unexpected(open.scan.source.file.string(), "a scan that lasts 0 s",
                             "one with a stretch from time to time: use --from and --to");
        }
        const Stretch stretch{
            fromTime_ ? fractionOf(open.clock.taken(*fromTime_), duration, -1.0)
                      : from_.value_or(0.0),
            toTime_ ? fractionOf(open.clock.taken(*toTime_), duration, 1.0) : to_.value_or(1.0)};
        if (stretch.start > 1.0 || stretch.end < 0.0) {
            throw unexpected(open.scan.source.file.string(),
                             fmt::format("a stretch from {} to {} of the scan",
                                         shortText(stretch.start), shortText(stretch.end)),
                             fmt::format("one that meets the scan, which goes from {} to {} s",
                                         fixedText(open.clock.shown(0.0), kSecondDigits),
                                         fixedText(open.clock.shown(duration), kSecondDigits)));
        }
        if (stretch.start > stretch.end) {
            throw Failure(fmt::format("the stretch starts at {} of the scan and ends at {}, "
                                      "expected it to end later",
                                      shortText(stretch.start), shortText(stretch.end)),
                          ExitCode::WrongUsage);
        }
        return stretch;
    }

    /// The nodes from one scan time to another, with time and orientation.
    static void addNodes(const OpenScan& open, double from, double to, Report& report) {
        const auto& nodes = open.mobile->nodes();
        const Tq_1_1::Mat4d<double> toWorld = open.scan.toWorld();
        Table table{columnsOf(open.scan.units), {}};
        double length = 0.0;
        std::optional<Tq_1_1::Vec3d<double>> last;
        for (const Ovr::VardexLib::TrajectoryNode& node : nodes) {
            const double time = node.time - nodes.front().time;
            if (!isInStretch(time, from, to)) {
                continue;
            }
            const Tq_1_1::Vec3d<double> position = toWorld.transform(positionOf(node));
            length += last ? distanceBetween(*last, position) : 0.0;
            last = position;
            table.rows.push_back(rowOf(open.clock.shown(time), position, rotationOf(node)));
        }
        report.addCount("count", "nodes", table.rows.size());
        open.scan.units.addTo(report);
        addDistance(open.scan.units, report, "length", "length", length, kMetreDigits);
        report.addTable("nodes", "path", std::move(table));
    }

    static std::vector<Table::Cell> rowOf(double time, const Tq_1_1::Vec3d<double>& position,
                                          const Tq_1_1::Quaternion& q) {
        std::vector<Table::Cell> row{{jsonNumber(time), fixedText(time, kSecondDigits)}};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            row.push_back({jsonNumber(position[axis]), fixedText(position[axis], kMetreDigits)});
        }
        for (const double value : {q.x, q.y, q.z, q.w}) {
            row.push_back({jsonNumber(value), fixedText(value, kRotationDigits)});
        }
        return row;
    }

    /// The positions that a host gets: those where the scanner stood still are left out.
    static void addHostPath(const std::vector<Tq_1_1::Vec3d<double>>& positions,
                            const Tq_1_1::Mat4d<double>& toWorld, const ScanUnits& units,
                            Report& report) {
        Table table{
            {{"x", axisLabel(units, 0)}, {"y", axisLabel(units, 1)}, {"z", axisLabel(units, 2)}},
            {}};
        for (const Tq_1_1::Vec3d<double>& position : positions) {
            const Tq_1_1::Vec3d<double> world = toWorld.transform(position);
            table.rows.emplace_back();
            for (std::size_t axis = 0; axis < 3; ++axis) {
                table.rows.back().push_back(
                    {jsonNumber(world[axis]), fixedText(world[axis], kMetreDigits)});
            }
        }
        report.addCount("count", "positions", positions.size());
        report.addTable("positions", "", std::move(table));
    }

    std::optional<double> from_;
    std::optional<double> to_;
    std::optional<double> fromTime_;
    std::optional<double> toTime_;
    bool host_ = false;
};

}  // namespace

std::unique_ptr<Command> makePathCommand() {
    return std::make_unique<PathCommand>();
}

}  // namespace ScanHost
