// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>
#include <sstream>

#include "Ovr/FormatRegistry.h"
#include "Ovr/Remarks.h"
#include "kit/AtomicFile.h"

#include "commands/Command.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Interrupt.h"
#include "session/MobileScan.h"
#include "session/ModuleSession.h"
#include "session/ProjectImport.h"
#include "session/Require.h"

namespace ScanHost {

namespace {

/// What a pose may lose on its way through the text, in every element of its matrix.
constexpr double kVerifyTolerance = 1e-9;

/// Largest difference between a trajectory and its copy.
struct Difference {
    double time = 0.0;      ///< [s]
    double position = 0.0;  ///< [m], along an axis
    double rotation = 0.0;  ///< element of the rotation matrix

    /// Also false when one of them is not a number.
    bool isSmall() const {
        return time <= kVerifyTolerance && position <= kVerifyTolerance &&
               rotation <= kVerifyTolerance;
    }
};

void widen(double& largest, double value) {
    largest = value > largest || std::isnan(value) ? value : largest;
}

Difference compare(const std::vector<Ovr::VardexLib::TrajectoryNode>& nodes,
                   const std::vector<Ovr::VardexLib::TrajectoryNode>& copies) {
    Difference difference;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        widen(difference.time, std::abs(nodes[i].time - copies[i].time));
        for (std::size_t value = 0; value < 15; ++value) {
            const double apart = std::abs(nodes[i].pose[value] - copies[i].pose[value]);
            widen(value < 12 ? difference.rotation : difference.position, apart);
        }
    }
    return difference;
}

class ExportCommand final : public Command {
  public:
    std::string name() const override { return "export"; }
    std::string summary() const override {
        return "Write the trajectory as text, in world coordinates";
    }
    void declare(CLI::App& app) override {
        addScan(app, scan_);
        CLI::Option* output =
            app.add_option_function<std::string>(
                   "-o,--output", [this](const std::string& path) { output_ = path; },
                   "File to write; without it the text goes to standard output, or with --json "
                   "into the document")
                ->type_name("FILE");
        app.add_flag("--verify", verify_,
                     "Read the file back as a trajectory and compare the poses")
            ->needs(output);
    }
    void run(const CommonOptions& common, Console& console) override {
        ModuleSession session(common.module);
        const ImportedScan scan = importOne(session, console, scan_);
        MobileScan mobile(scan, console);
        mobile.requireTrajectory();
        Report report(scan.name);
        report.addHidden("scan", scan.name);
        report.addCount("nodes", "nodes", mobile.nodes().size());
        if (output_) {
            writeFile(mobile);
            report.addText("file", "written to", output_->string());
            if (verify_) {
                verify(scan, mobile, report);
            }
            console.show(report);
        } else if (console.isJson()) {
            std::ostringstream text;
            requireOk(mobile.points().writeTrajectoryToStream(text), scan.name);
            report.addHidden("text", text.str());
            console.show(report);
        } else {
            requireOk(mobile.points().writeTrajectoryToStream(console.stream()), "standard output");
        }
    }

  private:
    void writeFile(const MobileScan& mobile) const {
        Ovr::Formats::AtomicFile file;
        requireOk(file.open(*output_));
        requireOk(mobile.points().writeTrajectoryToStream(file.stream()), output_->string());
        Interrupt::check();
        requireOk(file.commit());
    }

    void verify(const ImportedScan& scan, const MobileScan& mobile, Report& report) const {
        const std::filesystem::path file = *output_;
        std::vector<Ovr::VardexLib::TrajectoryNode> copies;
        Ovr::Remarks remarks;
        requireOk(Ovr::FormatRegistry::the().readTrajectory(file, scan.source.project.get(), copies,
                                                            remarks));
        if (copies.size() != mobile.nodes().size()) {
            throw Failure(file.string() + ": found " + std::to_string(copies.size()) +
                          " poses, expected " + std::to_string(mobile.nodes().size()));
        }
        const Difference difference = compare(mobile.nodes(), copies);
        Report& result = report.group("verified", "read back, largest difference");
        result.addNumber("time", "time", difference.time, 12, " s");
        result.addNumber("position", "position", difference.position, 12, " m");
        result.addNumber("rotation", "rotation", difference.rotation, 12, "");
        if (!difference.isSmall()) {
            throw Failure(file.string() + ": the poses read back differ by up to " +
                          shortText(difference.time) + " s, " + shortText(difference.position) +
                          " m and " + shortText(difference.rotation) +
                          " in the rotation, expected at most " + shortText(kVerifyTolerance));
        }
    }

    ScanOptions scan_;
    std::optional<std::filesystem::path> output_;
    bool verify_ = false;
};

}  // namespace

std::unique_ptr<Command> makeExportCommand() {
    return std::make_unique<ExportCommand>();
}

}  // namespace ScanHost
