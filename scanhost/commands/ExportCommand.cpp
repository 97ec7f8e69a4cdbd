// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cstddef>
#include <filesystem>
#include <limits>
#include <optional>
#include <sstream>

#include "kit/AtomicFile.h"

#include "commands/ScanCommand.h"
#include "session/Interrupt.h"
#include "session/Require.h"
#include "session/TrajectoryCheck.h"

namespace ScanHost {

namespace {

class ExportCommand final : public ScanCommand {
  public:
    std::string name() const override { return "export"; }
    std::string summary() const override {
        return "Write the trajectory as text, in world coordinates";
    }

  protected:
    void declareMore(Options& options) override {
        const Option& output = options.file(
            "-o,--output", output_, "FILE",
            "File to write; without it, or with -, the text goes to standard output, or with "
            "--json into the document");
        options
            .flag("--verify", verify_, "Read the file back as a trajectory and compare the poses")
            .needs(output);
        options.number("--from-time", fromTime_, "SECONDS",
                       "Leave out the nodes before a scan time");
        options.number("--to-time", toTime_, "SECONDS", "Leave out the nodes after a scan time");
        declareForce(options, outputRules());
    }
    void checkOptions() const override {
        if (verify_ && !writesFile()) {
            throw unexpected("--verify", "standard output", "a file", ExitCode::WrongUsage);
        }
    }
    std::vector<OutputFile> outputs() const override {
        return writesFile() ? std::vector{OutputFile{*output_, {".txt", ".tum"}}}
                            : std::vector<OutputFile>();
    }
    ScanNeeds needs() const override { return {.trajectory = Need::Required}; }
    void ask(OpenScan& open, Report& report) override {
        MobileScan& mobile = *open.mobile;
        if (fromTime_ || toTime_) {
            constexpr double kOpen = std::numeric_limits<double>::infinity();
            const std::size_t all = mobile.nodes().size();
            mobile.cutTrajectory(fromTime_ ? open.clock.taken(*fromTime_) : -kOpen,
                                 toTime_ ? open.clock.taken(*toTime_) : kOpen);
            report.addCount("leftOut", "nodes left out", all - mobile.nodes().size());
        }
        report.addCount("nodes", "nodes", mobile.nodes().size());
        if (writesFile()) {
            writeFile(mobile);
            report.addText("file", "written to", output_->string());
            if (verify_) {
                requireSameTrajectory(*output_, open.scan.source.project.get(), mobile.nodes(),
                                      open.scan.units, report);
            }
        } else if (open.console.isJson()) {
            std::ostringstream text;
            requireOk(mobile.points().writeTrajectoryToStream(text), open.scan.name);
            report.addHidden("text", text.str());
        } else {
            requireOk(mobile.points().writeTrajectoryToStream(open.console.stream()),
                      "standard output");
        }
    }
    bool hasAnswered(const Console& console) const override {
        return !writesFile() && !console.isJson();
    }

  private:
    bool writesFile() const { return output_ && *output_ != "-"; }

    void writeFile(const MobileScan& mobile) const {
        Ovr::Formats::AtomicFile file;
        requireOk(file.open(*output_, outputRules().existing()));
        requireOk(mobile.points().writeTrajectoryToStream(file.stream()), output_->string());
        Interrupt::check();
        requireOk(file.commit());
    }

    std::optional<std::filesystem::path> output_;
    std::optional<double> fromTime_;
    std::optional<double> toTime_;
    bool verify_ = false;
};

}  // namespace

std::unique_ptr<Command> makeExportCommand() {
    return std::make_unique<ExportCommand>();
}

}  // namespace ScanHost
