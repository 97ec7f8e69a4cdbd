// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <filesystem>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "Hx/ModelOutput.h"
#include "Ovr/FormatRegistry.h"
#include "kit/AtomicFile.h"

#include "commands/CommandList.h"
#include "picture/ScanPictures.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Interrupt.h"
#include "session/KnownFiles.h"
#include "session/ModuleSession.h"
#include "session/ProjectImport.h"
#include "session/ProjectReport.h"
#include "session/Require.h"
#include "session/ScanReport.h"

namespace ScanHost {

namespace {

class InfoCommand final : public Command {
  public:
    std::string name() const override { return "info"; }
    std::string summary() const override { return "What scans and projects hold"; }
    void declare(Options& options) override {
        options
            .positionals(
                "FILE", scan_.files, Option::Names::File,
                fmt::format("{} and {}, all of one project with one origin",
                            pointsFileText("Points files"), projectFileText("scanner projects")))
            .required();
        declareScanSettings(options, scan_);
        options.file("--picture", picture_, "FILE",
                     "Draw the scans from above, and each stance as a panorama into a file next "
                     "to it");
        options.file("--project-output", projectOutput_, "FILE",
                     "Write what the point sets give into the host's project output");
    }
    void run(const CommonOptions& /*common*/, Console& console) override {
        ModuleSession session;
        ScanImporter importer(session, console);
        Report report;
        Report& module = report.group("module", "module");
        module.addText("name", "name", session.moduleName());
        module.addText("version", "version", session.moduleVersion());
        std::vector<ImportedScan> scans;
        for (const std::string& file : scan_.files) {
            importFile(session, importer, file, scans, report, console);
        }
        describeOrigin(*importer.project(), report);
        for (const ImportedScan& scan : scans) {
            describeScan(scan, report.item("scans", "scan " + scan.name), console);
            Interrupt::check();
        }
        writeOutputs(scans, report);
        console.show(report);
    }

  private:
    void importFile(ModuleSession& session, ScanImporter& importer, const std::string& file,
                    std::vector<ImportedScan>& scans, Report& report, Console& console) const {
        if (Ovr::FormatRegistry::the().isProject(file)) {
            const auto project = openProject(session, console, file);
            for (ImportedScan& scan : importProject(*project, importer, scan_, console)) {
                scans.push_back(std::move(scan));
            }
            describeProject(*project, report.item("projects", "project " + file));
            return;
        }
        for (const Ovr::ScanListing& listing : importer.list(file, scan_)) {
            scans.push_back(importer.import(listing, scan_, session.root()));
        }
    }

    static void describeOrigin(const Ovr::ScanProject& project, Report& report) {
        if (const auto origin = project.origin()) {
            report.addPoint("origin", "project origin [m]", *origin, 1, "");
        } else {
            report.addHidden("origin", Json::Value());
        }
    }

    void writeOutputs(const std::vector<ImportedScan>& scans, Report& report) const {
        if (picture_) {
            for (const PictureFile& picture : drawScans(scans, *picture_)) {
                Report& item = report.item("pictures", "picture");
                item.addText("file", "file", picture.file.string());
                item.addText("shows", "shows", picture.shows);
            }
        }
        if (projectOutput_) {
            writeProjectOutput(scans);
            report.addText("projectOutput", "project output", projectOutput_->string());
        }
    }

    void writeProjectOutput(const std::vector<ImportedScan>& scans) const {
        Ovr::Formats::AtomicFile file;
        requireOk(file.open(*projectOutput_));
        const auto context = std::make_shared<Hx::WriteContextBase>();
        for (const ImportedScan& scan : scans) {
            requireOk(scan.pointSet->writeInfo(file.stream(), context), scan.name);
            requireOk(scan.pointSet->writeScanDataId(file.stream(), context), scan.name);
        }
        requireOk(file.commit());
    }

    ScanOptions scan_;
    std::optional<std::filesystem::path> picture_;
    std::optional<std::filesystem::path> projectOutput_;
};

}  // namespace

std::unique_ptr<Command> makeInfoCommand() {
    return std::make_unique<InfoCommand>();
}

}  // namespace ScanHost
