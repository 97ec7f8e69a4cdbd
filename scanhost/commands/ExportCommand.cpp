// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <optional>
#include <sstream>

#include <fmt/format.h>

#include "Ovr/FormatRegistry.h"
#include "Ovr/Remarks.h"
#include "kit/AtomicFile.h"

#include "commands/ScanCommand.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Interrupt.h"
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

class ExportCommand final : public ScanCommand {
  public:
    std::string name() const override { return "export"; }
    std::string summary() const override {
        return "Write the trajectory as text, in world coordinates";
    }

  protected:
    void declareMore(Options& options) override {
        const Option& output =
            options.file("-o,--output", output_, "FILE",
                         "File to write; without it the text goes to standard output, or with "
                         "--json into the document");
        options
            .flag("--verify", verify_, "Read the file back as a trajectory and compare the poses")
            .needs(output);
    }
    ScanNeeds needs() const override { return {.trajectory = Need::Required}; }
    void ask(OpenScan& open, Report& report) override {
        const MobileScan& mobile = *open.mobile;
        report.addCount("nodes", "nodes", mobile.nodes().size());
        if (output_) {
            writeFile(mobile);
            report.addText("file", "written to", output_->string());
            if (verify_) {
                verify(open.scan, mobile, report);
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
        return !output_ && !console.isJson();
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
            throw unexpected(file.string(), fmt::format("{} poses", copies.size()),
                             fmt::to_string(mobile.nodes().size()));
        }
        const Difference difference = compare(mobile.nodes(), copies);
        Report& result = report.group("verified", "read back, largest difference");
        result.addNumber("time", "time", difference.time, 12, " s");
        result.addNumber("position", "position", difference.position, 12, " m");
        result.addNumber("rotation", "rotation", difference.rotation, 12, "");
        if (!difference.isSmall()) {
            throw Failure(fmt::format(
                "{}: the poses read back differ by up to {} s, {} m and {} in the rotation, "
                "expected at most {}",
                file.string(), shortText(difference.time), shortText(difference.position),
                shortText(difference.rotation), shortText(kVerifyTolerance)));
        }
    }

    std::optional<std::filesystem::path> output_;
    bool verify_ = false;
};

}  // namespace

std::unique_ptr<Command> makeExportCommand() {
    return std::make_unique<ExportCommand>();
}

}  // namespace ScanHost
