// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cstdint>
#include <vector>

#include "commands/ScanCommand.h"
#include "session/PointTimes.h"
#include "session/Require.h"
#include "session/ScanReport.h"

namespace ScanHost {

namespace {

void addTimes(const OpenScan& open, Report& report) {
    const Vardex::CorvinMobilePointSet& points = open.mobile->points();
    std::vector<double> times = pointTimes(points);
    const bool ordered = std::is_sorted(times.begin(), times.end());
    std::sort(times.begin(), times.end());
    report.addCount("points", "points", times.size());
    if (!times.empty()) {
        report.addSeconds("first", "earliest", open.clock.shown(times.front()));
        report.addSeconds("last", "latest", open.clock.shown(times.back()));
        const auto distinct = std::unique(times.begin(), times.end()) - times.begin();
        report.addCount("distinct", "distinct times", static_cast<std::uint64_t>(distinct));
        report.addFlag("ordered", "in the order of time", ordered);
    }
    const std::string layout(Vardex::layoutName(points.getRecordLayout()));
    report.addText("layout", "record", layout);
    report.addCount("bytesPerPoint", "bytes per point", points.getRecordSize());
}

class TimesCommand final : public ScanCommand {
  public:
    std::string name() const override { return "times"; }
    std::string summary() const override { return "Load the times of a mobile scan's points"; }

  protected:
    void declareMore(Options& options) override {
        options.flag("--drop", drop_, "Drop the times again and say what is left");
    }
    ScanNeeds needs() const override {
        return {.trajectory = Need::IfThere, .times = Need::Required};
    }
    void ask(OpenScan& open, Report& report) override {
        Vardex::CorvinMobilePointSet& points = open.mobile->points();
        report.addSeconds("duration", "duration", open.mobile->duration());
        describeZero(open.clock, report);
        addTimes(open, report.group("loaded", "times loaded"));
        if (drop_) {
            requireOk(points.unloadScanPtTimes(), open.scan.source.file.string());
            addTimes(open, report.group("dropped", "times dropped"));
        }
    }

  private:
    bool drop_ = false;
};

}  // namespace

std::unique_ptr<Command> makeTimesCommand() {
    return std::make_unique<TimesCommand>();
}

}  // namespace ScanHost
