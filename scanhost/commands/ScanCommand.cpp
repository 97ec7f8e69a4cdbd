// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "commands/ScanCommand.h"

#include "session/ProjectImport.h"

namespace ScanHost {

namespace {

bool takesStances(const ScanNeeds& needs) {
    return needs.trajectory != Need::Required && needs.times != Need::Required && !needs.duration;
}

/// Loads what a command needs. The trajectory comes first: times count from its first node.
void load(const ScanNeeds& needs, OpenScan& open) {
    if (takesStances(needs) && !MobileScan::isMobile(open.scan)) {
        return;
    }
    MobileScan& mobile = open.mobile.emplace(open.scan, open.console);
    if (needs.trajectory == Need::Required) {
        mobile.requireTrajectory();
    } else if (needs.trajectory == Need::IfThere) {
        mobile.loadTrajectory();
    }
    if (needs.times == Need::Required) {
        mobile.requireTimes();
        open.hasTimes = true;
    } else if (needs.times == Need::IfThere) {
        open.hasTimes = mobile.loadTimes();
    }
    if (needs.duration) {
        mobile.requireDuration();
    }
}

}  // namespace

void ScanCommand::declare(Options& options) {
    declareScan(options, scan_);
    declareMore(options);
}

void ScanCommand::run(const CommonOptions& /*common*/, Console& console) {
    checkOptions();
    ModuleSession session;
    const ImportedScan scan = importOne(session, console, scan_);
    OpenScan open{session, console, scan, {}};
    load(needs(), open);
    Report report(scan.name);
    report.addHidden("scan", scan.name);
    ask(open, report);
    if (!hasAnswered(console)) {
        console.show(report);
    }
}

}  // namespace ScanHost
