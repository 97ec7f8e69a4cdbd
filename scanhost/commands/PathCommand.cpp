// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cmath>
#include <limits>
#include <optional>

#include "Hx/PC2TimeFilter.h"

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

class PathCommand final : public Command {
  public:
    std::string name() const override { return "path"; }
    std::string summary() const override {
        return "The positions that the scanner passed in a stretch of the scan";
    }
    void declare(CLI::App& app) override {
        addScan(app, scan_);
        CLI::Option* from =
            addNumber(app, "--from", from_, "FRACTION", "Start as a fraction of the scan (0)");
        CLI::Option* to =
            addNumber(app, "--to", to_, "FRACTION", "End as a fraction of the scan (1)");
        CLI::Option* fromTime =
            addNumber(app, "--from-time", fromTime_, "SECONDS", "Start as a scan time");
        CLI::Option* toTime = addNumber(app, "--to-time", toTime_, "SECONDS", "End as a scan time");
        fromTime->excludes(from);
        toTime->excludes(to);
    }
    void run(const CommonOptions& common, Console& console) override {
        ModuleSession session(common.module);
        const ImportedScan scan = importOne(session, console, scan_);
        MobileScan mobile(scan, console);
        mobile.requireTrajectory();
        mobile.requireDuration();
        if ((fromTime_ || toTime_) && !(mobile.duration() > 0.0)) {
            throw Failure(scan.source.file.string() + ": found a scan that lasts 0 s, expected " +
                          "one with a stretch from time to time: use --from and --to");
        }
        const double start =
            fromTime_ ? fractionOf(*fromTime_, mobile.duration(), -1.0) : from_.value_or(0.0);
        const double end =
            toTime_ ? fractionOf(*toTime_, mobile.duration(), 1.0) : to_.value_or(1.0);
        if (start > end) {
            throw Failure("the stretch starts at " + shortText(start) +
                              " of the scan and ends at " + shortText(end) +
                              ", expected it to end later",
                          ExitCode::WrongUsage);
        }
        const std::vector<Tq_1_1::Vec3d<double>> positions =
            mobile.pointTimes()->getSelectedTrajectory(Hx::PC2TimeFilter(start, end));
        console.show(reportOf(scan, mobile, {start, end}, positions));
    }

  private:
    struct Stretch {
        double start;
        double end;
    };

    static Report reportOf(const ImportedScan& scan, const MobileScan& mobile,
                           const Stretch& stretch,
                           const std::vector<Tq_1_1::Vec3d<double>>& positions) {
        Report report(scan.name);
        report.addHidden("scan", scan.name);
        report.addNumber("from", "from fraction", stretch.start, kSecondDigits, "");
        report.addNumber("to", "to fraction", stretch.end, kSecondDigits, "");
        report.addNumber("fromTime", "from time", stretch.start * mobile.duration(), kSecondDigits,
                         " s");
        report.addNumber("toTime", "to time", stretch.end * mobile.duration(), kSecondDigits, " s");
        const Tq_1_1::Mat4d<double> toWorld = scan.toWorld();
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
        report.addNumber("length", "length", length, kMetreDigits, " m");
        report.addTable("positions", "path", std::move(table));
        return report;
    }

    ScanOptions scan_;
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
