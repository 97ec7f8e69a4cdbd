// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "commands/ScanCommand.h"

#include <fmt/format.h>

#include "report/Failure.h"
#include "session/Box.h"
#include "session/ProjectImport.h"
#include "session/SpooledInput.h"

namespace ScanHost {

namespace {

bool takesStances(const ScanNeeds& needs) {
    return needs.trajectory != Need::Required && needs.times != Need::Required && !needs.duration;
}

Content contentFor(const ScanNeeds& needs) {
    const bool asksThePath = needs.trajectory == Need::Required && needs.times == Need::Nothing;
    return asksThePath                    ? Content::PathOnly
           : needs.times == Need::Nothing ? Content::Points
                                          : Content::PointsForTimes;
}

/// Calls @p load. What stands in its way is a warning, unless the user has asked for it by name.
/// @return whether it was done
template <typename Load>
bool tryTo(OpenScan& open, bool asked, const Load& load) {
    try {
        load();
        return true;
    } catch (const Failure& failure) {
        if (asked || failure.code() == ExitCode::Cancelled) {
            throw;
        }
        open.console.warn(failure.what());
        return false;
    }
}

/// A trajectory says no unit. Metres are taken, unless the user says more.
void requireOneUnit(const ImportedScan& scan) {
    if (!scan.units.fitTrajectory()) {
        throw unexpected(
            scan.source.file.string(),
            fmt::format("points in {} and a trajectory, which is taken to be in metres",
                        scan.units.words()),
            "one unit: --unit says which one both are in");
    }
}

/// Loads what a command needs. The trajectory comes first: times count from its first node.
void load(const ScanNeeds& needs, OpenScan& open) {
    if (takesStances(needs) && !MobileScan::isMobile(open.scan)) {
        remarkOnStance(open.scan, open.console);
        return;
    }
    MobileScan& mobile = open.mobile.emplace(open.scan, open.console);
    bool complete = true;
    if (needs.trajectory == Need::Required) {
        requireOneUnit(open.scan);
        mobile.requireTrajectory();
        remarkOnFarPath(open.scan, headerBounds(open.scan), mobile.nodes(), open.console);
    } else if (needs.trajectory == Need::IfThere) {
        const bool asked = open.scan.trajectoryNamed || needs.times == Need::Required;
        complete = tryTo(open, asked, [&] { mobile.loadTrajectory(); });
    }
    if (needs.times == Need::Required) {
        mobile.requireTimes();
        open.hasTimes = true;
    } else if (needs.times == Need::IfThere) {
        complete = complete && tryTo(open, false, [&] { open.hasTimes = mobile.loadTimes(); });
        open.noTimes = complete ? open.noTimes : "not loaded, see the warning";
    }
    if (needs.duration) {
        mobile.requireDuration();
    }
}

}  // namespace

void ScanCommand::declare(Options& options) {
    declareScan(options, scan_);
    declareTimes(options, scan_.times);
    declareMore(options);
}

void ScanCommand::run(const CommonOptions& /*common*/, Console& console) {
    checkOptions();
    const auto spooled = spoolInput(scan_, console);
    rules_.protect(scan_);
    rules_.check(outputs());
    ModuleSession session;
    const ImportedScan scan = importOne(session, console, scan_, contentFor(needs()));
    rules_.protect(scan);
    rules_.check(outputs());
    OpenScan open{session, console, scan};
    load(needs(), open);
    open.clock = open.mobile ? open.mobile->clock(scan_.times) : ScanClock();
    Report report(scan.name);
    report.addHidden("scan", scan.name);
    open.clock.describe(report);
    ask(open, report);
    if (!hasAnswered(console)) {
        console.show(report);
    }
}

}  // namespace ScanHost
