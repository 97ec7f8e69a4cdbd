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

/// Fractions of the scan.
struct Stretch {
    double start;
    double end;
};

class PathCommand final : public ScanCommand {
  public:
    std::string name() const override { return "path"; }
    std::string summary() const override {
        return "The positions that the scanner passed in a stretch of the scan";
    }

  protected:
    void declareMore(Options& options) override {
        const Option& from =
            options.number("--from", from_, "FRACTION", "Start as a fraction of the scan (0)");
        const Option& to =
            options.number("--to", to_, "FRACTION", "End as a fraction of the scan (1)");
        options.number("--from-time", fromTime_, "SECONDS", "Start as a scan time").excludes(from);
        options.number("--to-time", toTime_, "SECONDS", "End as a scan time").excludes(to);
    }
    ScanNeeds needs() const override { return {.trajectory = Need::Required, .duration = true}; }
    void ask(OpenScan& open, Report& report) override {
        const double duration = open.mobile->duration();
        const Stretch stretch = stretchOf(open.scan.source.file.string(), duration);
        report.addNumber("from", "from fraction", stretch.start, kSecondDigits, "");
        report.addNumber("to", "to fraction", stretch.end, kSecondDigits, "");
        report.addSeconds("fromTime", "from time", stretch.start * duration);
        report.addSeconds("toTime", "to time", stretch.end * duration);
        addPath(open.mobile->pointTimes()->getSelectedTrajectory(
                    Hx::PC2TimeFilter(stretch.start, stretch.end)),
                open.scan.toWorld(), report);
    }

  private:
    Stretch stretchOf(const std::string& file, double duration) const {
        if ((fromTime_ || toTime_) && !(duration > 0.0)) {
            throw unexpected(file, "a scan that lasts 0 s",
                             "one with a stretch from time to time: use --from and --to");
        }
        const Stretch stretch{
            fromTime_ ? fractionOf(*fromTime_, duration, -1.0) : from_.value_or(0.0),
            toTime_ ? fractionOf(*toTime_, duration, 1.0) : to_.value_or(1.0)};
        if (stretch.start > stretch.end) {
            throw Failure(fmt::format("the stretch starts at {} of the scan and ends at {}, "
                                      "expected it to end later",
                                      shortText(stretch.start), shortText(stretch.end)),
                          ExitCode::WrongUsage);
        }
        return stretch;
    }

    static void addPath(const std::vector<Tq_1_1::Vec3d<double>>& positions,
                        const Tq_1_1::Mat4d<double>& toWorld, Report& report) {
        Table table{{{"x", "x [m]"}, {"y", "y [m]"}, {"z", "z [m]"}}, {}};
        double length = 0.0;
        for (std::size_t i = 0; i < positions.size(); ++i) {
            length += i > 0 ? distanceBetween(positions[i - 1], positions[i]) : 0.0;
            const Tq_1_1::Vec3d<double> world = toWorld.transform(positions[i]);
            table.rows.emplace_back();
            for (std::size_t axis = 0; axis < 3; ++axis) {
                table.rows.back().push_back(
                    {jsonNumber(world[axis]), fixedText(world[axis], kMetreDigits)});
            }
        }
        report.addCount("count", "positions", positions.size());
        report.addMetres("length", "length", length);
        report.addTable("positions", "path", std::move(table));
    }

    std::optional<double> from_;
    std::optional<double> to_;
    std::optional<double> fromTime_;
    std::optional<double> toTime_;
};

}  // namespace

std::unique_ptr<Command> makePathCommand() {
    return std::make_unique<PathCommand>();
}

}  // namespace ScanHost
