// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cstdint>
#include <vector>

#include "commands/Command.h"
#include "session/MobileScan.h"
#include "session/ModuleSession.h"
#include "session/PointTimes.h"
#include "session/ProjectImport.h"
#include "session/Require.h"
#include "session/ScanReport.h"

namespace ScanHost {

namespace {

constexpr int kSecondDigits = 6;

void addTimes(const Vardex::CorvinMobilePointSet& points, Report& report) {
    std::vector<double> times = pointTimes(points);
    const bool ordered = std::is_sorted(times.begin(), times.end());
    std::sort(times.begin(), times.end());
    report.addCount("points", "points", times.size());
    if (!times.empty()) {
        report.addNumber("first", "earliest", times.front(), kSecondDigits, " s");
        report.addNumber("last", "latest", times.back(), kSecondDigits, " s");
        const auto distinct = std::unique(times.begin(), times.end()) - times.begin();
        report.addCount("distinct", "distinct times", static_cast<std::uint64_t>(distinct));
        report.addFlag("ordered", "in the order of time", ordered);
    }
    const std::string layout(Vardex::layoutName(points.getRecordLayout()));
    report.addText("layout", "record", layout);
    report.addCount("bytesPerPoint", "bytes per point", points.getRecordSize());
}

class TimesCommand final : public Command {
  public:
    std::string name() const override { return "times"; }
    std::string summary() const override { return "Load the times of a mobile scan's points"; }
    void declare(CLI::App& app) override {
        addScan(app, scan_);
        app.add_flag("--drop", drop_, "Drop the times again and say what is left");
    }
    void run(const CommonOptions& common, Console& console) override {
        ModuleSession session(common.module);
        const ImportedScan scan = importOne(session, console, scan_);
        MobileScan mobile(scan, console);
        mobile.loadTrajectory();
        mobile.requireTimes();
        Report report(scan.name);
        report.addHidden("scan", scan.name);
        report.addNumber("duration", "duration", mobile.duration(), kSecondDigits, " s");
        addTimes(mobile.points(), report.group("loaded", "times loaded"));
        if (drop_) {
            requireOk(mobile.points().unloadScanPtTimes(), scan.source.file.string());
            addTimes(mobile.points(), report.group("dropped", "times dropped"));
        }
        console.show(report);
    }

  private:
    ScanOptions scan_;
    bool drop_ = false;
};

}  // namespace

std::unique_ptr<Command> makeTimesCommand() {
    return std::make_unique<TimesCommand>();
}

}  // namespace ScanHost
