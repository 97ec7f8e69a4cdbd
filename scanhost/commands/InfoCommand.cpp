// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>

#include <fmt/format.h>

#include "Hx/ModelOutput.h"
#include "Ovr/FormatRegistry.h"
#include "kit/AtomicFile.h"

#include "commands/CommandList.h"
#include "picture/PictureReport.h"
#include "picture/ScanPictures.h"
#include "picture/Sheet.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Interrupt.h"
#include "session/KnownFiles.h"
#include "session/ModuleSession.h"
#include "session/OutputRules.h"
#include "session/ProjectImport.h"
#include "session/ProjectReport.h"
#include "session/Require.h"
#include "session/ScanReport.h"
#include "session/SpooledInput.h"
#include "session/StatsReport.h"

namespace ScanHost {

namespace {

class InfoCommand final : public Command {
  public:
    std::string name() const override { return "info"; }
    std::string summary() const override { return "What scans and projects hold"; }
    void declare(Options& options) override {
        declareScanFiles(options, scan_);
        declareScanSettings(options, scan_);
        options.flag("--stats", stats_,
                     "Also tell figures of the path, of the points' times and distances, and of "
                     "what only LAS files hold");
        options.file("--picture", picture_, "FILE",
                     "Draw the scans from above, and each stance as a panorama into a file next "
                     "to it");
        options.file("--project-output", projectOutput_, "FILE",
                     "Write what the point sets give into the host's project output");
        declareHost(options, host_);
        declareForce(options, rules_);
    }
    void run(const CommonOptions& /*common*/, Console& console) override {
        const auto spooled = spoolInput(scan_, console);
        rules_.protect(scan_);
        checkOutputs();
        ModuleSession session;
        ScanImporter importer(session, console);
        Report report;
        std::vector<ImportedScan> scans;
        for (const std::string& file : scan_.files) {
            importFile(session, importer, file, scans, report, console);
        }
        for (const ImportedScan& scan : scans) {
            rules_.protect(scan);
        }
        checkOutputs();
        warnOfUnits(scans, console);
        describeOrigin(*importer.project(), scans, report);
        for (const ImportedScan& scan : scans) {
            Report& item = report.item("scans", "scan " + scan.name);
            describeScan(scan, host_, item, console);
            if (stats_) {
                describeStats(scan, item, console);
            }
            Interrupt::check();
        }
        writeOutputs(scans, report, console);
        if (host_) {
            Report& module = report.group("module", "module");
            module.addText("name", "name", session.moduleName());
            module.addText("version", "version", session.moduleVersion());
        }
        console.show(report);
    }

  private:
    /// The first scan with other units than the one before all; the end when there is none.
    static std::vector<ImportedScan>::const_iterator oddUnits(
        const std::vector<ImportedScan>& scans) {
        return std::find_if(scans.begin(), scans.end(), [&](const ImportedScan& scan) {
            return scan.units.words() != scans.front().units.words();
        });
    }

    void warnOfUnits(const std::vector<ImportedScan>& scans, Console& console) const {
        const auto odd = oddUnits(scans);
        if (odd == scans.end()) {
            return;
        }
        const std::string found =
            fmt::format("{} in {} and {} in {}", scans.front().name, scans.front().units.words(),
                        odd->name, odd->units.words());
        if (picture_) {
            throw unexpected("--picture", found, "scans in one unit, see --unit");
        }
        console.warn(found + ": the scans do not fit together");
    }

    void checkOutputs() const {
        if (picture_) {
            rules_.check({*picture_, pictureEndings()});
        }
        if (projectOutput_) {
            rules_.check({*projectOutput_, {".txt"}});
            std::error_code ignored;
            if (picture_ && std::filesystem::weakly_canonical(*picture_, ignored) ==
                                std::filesystem::weakly_canonical(*projectOutput_, ignored)) {
                throw unexpected("--project-output", "the file that --picture writes",
                                 "another one");
            }
        }
    }

    void importFile(ModuleSession& session, ScanImporter& importer, const std::string& file,
                    std::vector<ImportedScan>& scans, Report& report, Console& console) const {
        if (Ovr::FormatRegistry::the().isProject(file)) {
            const auto project = openProject(session, console, file);
            for (ImportedScan& scan :
                 importProject(*project, importer, scan_, console, Content::Everything)) {
                scans.push_back(std::move(scan));
            }
            describeProject(*project, host_, report.item("projects", "project " + file));
            return;
        }
        for (const Ovr::ScanListing& listing : importer.list(file, scan_)) {
            scans.push_back(importer.import(listing, scan_, session.root(), Content::Everything));
        }
    }

    /// Scans in different units share an origin, of which only the numbers can be shown.
    static void describeOrigin(const Ovr::ScanProject& project,
                               const std::vector<ImportedScan>& scans, Report& report) {
        const std::string unit = oddUnits(scans) == scans.end() && !scans.empty()
                                     ? fmt::format(" {}", scans.front().units.brackets())
                                     : std::string();
        if (const auto origin = project.origin()) {
            report.addPoint("origin", "project origin" + unit, *origin, 1, "");
        } else {
            report.addHidden("origin", Json::Value());
        }
    }

    void writeOutputs(const std::vector<ImportedScan>& scans, Report& report,
                      Console& console) const {
        if (picture_) {
            const Scene scene = openScene(scans, false, console);
            for (const PictureFile& picture :
                 drawPlanAndPanoramas(scene, scan_.files, *picture_, rules_)) {
                describePicture(picture, report.item("pictures", "picture"));
            }
        }
        if (projectOutput_) {
            writeProjectOutput(scans);
            report.addText("projectOutput", "project output", projectOutput_->string());
        }
    }

    void writeProjectOutput(const std::vector<ImportedScan>& scans) const {
        Ovr::Formats::AtomicFile file;
        requireOk(file.open(*projectOutput_, rules_.existing()));
        const auto context = std::make_shared<Hx::WriteContextBase>();
        for (const ImportedScan& scan : scans) {
            requireOk(scan.pointSet->writeInfo(file.stream(), context), scan.name);
            requireOk(scan.pointSet->writeScanDataId(file.stream(), context), scan.name);
        }
        requireOk(file.commit());
    }

    ScanOptions scan_;
    OutputRules rules_;
    bool stats_ = false;
    std::optional<std::filesystem::path> picture_;
    std::optional<std::filesystem::path> projectOutput_;
    bool host_ = false;
};

}  // namespace

std::unique_ptr<Command> makeInfoCommand() {
    return std::make_unique<InfoCommand>();
}

}  // namespace ScanHost
