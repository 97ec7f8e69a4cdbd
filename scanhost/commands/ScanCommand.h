// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "commands/Command.h"
#include "commands/CommandList.h"
#include "report/Report.h"
#include "session/ImportedScan.h"
#include "session/MobileScan.h"
#include "session/ModuleSession.h"
#include "session/OutputRules.h"

namespace ScanHost {

/// How much a command needs something of a scan.
enum class Need {
    Nothing,   ///< it is not loaded
    IfThere,   ///< it is loaded where the scan has it; what stands in the way is a warning
    Required,  ///< a scan without it is a Failure
};

/// What a command needs to be loaded before it asks. One that requires something, or the duration,
/// takes mobile scans only.
struct ScanNeeds {
    Need trajectory = Need::Nothing;
    Need times = Need::Nothing;
    /// The scan's duration, that of its trajectory. Goes with Need::Required of the trajectory.
    bool duration = false;
};

/// The scan that a command asks, with what the command needs.
struct OpenScan {
    ModuleSession& session;
    Console& console;
    const ImportedScan& scan;
    std::optional<MobileScan> mobile = std::nullopt;  ///< empty for a stance
    bool hasTimes = false;             ///< the points' times were needed and are loaded
    std::string noTimes = "none in the file";  ///< why they are not
    ScanClock clock = ScanClock();             ///< what times are printed and taken on
};

/// A command that opens one scan, asks it and reports the answer. This class declares the scan and
/// its options, loads the module, imports the scan, loads what the command needs in the order that
/// the module expects (trajectory, then times) and shows the report.
class ScanCommand : public Command {
  public:
    void declare(Options& options) final;
    void run(const CommonOptions& common, Console& console) final;

  protected:
    /// Declares options beyond those of every scan.
    virtual void declareMore(Options& /*options*/) {}
    /// Throws a Failure for values of options that do not go together. Nothing is loaded yet.
    virtual void checkOptions() const {}
    virtual ScanNeeds needs() const = 0;
    /// The files that the command writes: checked before anything is read, and once more when all
    /// that is read is known.
    virtual std::vector<OutputFile> outputs() const { return {}; }
    /// Fills the report. Its title and its field "scan" are the scan's name.
    virtual void ask(OpenScan& open, Report& report) = 0;
    /// Whether the command has written its answer to standard output itself.
    virtual bool hasAnswered(const Console& /*console*/) const { return false; }

    OutputRules& outputRules() { return rules_; }
    const OutputRules& outputRules() const { return rules_; }

  private:
    ScanOptions scan_;
    OutputRules rules_;
};

}  // namespace ScanHost
