// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "Ovr/FormatRegistry.h"
#include "kit/AtomicFile.h"

#include "commands/CommandList.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Interrupt.h"
#include "session/KnownFiles.h"
#include "session/ModuleSession.h"
#include "session/ProjectImport.h"
#include "session/Require.h"
#include "view/ScanPage.h"

namespace ScanHost {

namespace {

/// A word as a shell takes it.
std::string quoted(const std::string& word) {
    constexpr std::string_view kPlain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_./+-:,=@%";
    if (!word.empty() && word.find_first_not_of(kPlain) == std::string::npos) {
        return word;
    }
    std::string text = "'";
    for (const char c : word) {
        text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return text + "'";
}

/// What the user said of scans, as on the command line.
std::string settingsText(const ScanOptions& options) {
    std::string text;
    if (options.trajectory) {
        text += " --trajectory " + quoted(options.trajectory->string());
    }
    if (options.timeOffset) {
        text += " --time-offset=" + shortText(*options.timeOffset);
    }
    if (options.timeUnit) {
        for (const Ovr::TimeUnitEntry& entry : Ovr::kTimeUnits) {
            text += entry.unit == *options.timeUnit ? fmt::format(" --time-unit {}", entry.name)
                                                    : std::string();
        }
    }
    return text;
}

class ViewCommand final : public Command {
  public:
    std::string name() const override { return "view"; }
    std::string summary() const override {
        return "Write a page that shows scans in a browser, in one file";
    }
    void declare(Options& options) override {
        options
            .positionals(
                "FILE", scan_.files, Option::Names::File,
                fmt::format("{} and {}, all of one project with one origin",
                            pointsFileText("Points files"), projectFileText("scanner projects")))
            .required();
        declareScanSettings(options, scan_);
        options.file("-o,--output", output_, "FILE", "The page to write").required();
        options.count("--points", points_, "N",
                      "Thin the points evenly in space until at most N are left; without this "
                      "option to what fits into a page of 15 MB, but not below 300000");
    }
    void run(const CommonOptions& /*common*/, Console& console) override {
        if (points_ == 0U) {
            throw unexpected("--points", "0", "1 or more", ExitCode::WrongUsage);
        }
        ModuleSession session;
        ScanImporter importer(session, console);
        std::vector<ImportedScan> scans;
        std::vector<std::string> addresses;
        for (const std::string& file : scan_.files) {
            importFile(session, importer, file, scans, console);
            nameScans(file, scans.size(), addresses);
        }
        std::vector<PageScan> pageScans;
        pageScans.reserve(scans.size());
        for (std::size_t i = 0; i < scans.size(); ++i) {
            pageScans.push_back(loadPageScan(scans[i], addresses[i], console));
        }
        const PageRequest request{
            std::filesystem::path(scan_.files.front()).filename().string(),
            fmt::format("scanhost, {} {}", session.moduleName(), session.moduleVersion()), points_};
        Report report;
        report.addText("file", "page", output_.string());
        writePage(pageScans, request, console, report);
        console.show(report);
    }

  private:
    void importFile(ModuleSession& session, ScanImporter& importer, const std::string& file,
                    std::vector<ImportedScan>& scans, Console& console) const {
        if (Ovr::FormatRegistry::the().isProject(file)) {
            const auto project = openProject(session, console, file);
            for (ImportedScan& scan : importProject(*project, importer, scan_, console)) {
                scans.push_back(std::move(scan));
            }
            return;
        }
        for (const Ovr::ScanListing& listing : importer.list(file, scan_)) {
            scans.push_back(importer.import(listing, scan_, session.root()));
        }
    }

    /// Names the scans that came from a file, up to @p count of all.
    void nameScans(const std::string& file, std::size_t count,
                   std::vector<std::string>& addresses) const {
        const std::size_t before = addresses.size();
        const bool several = count > before + 1 || scan_.number;
        while (addresses.size() < count) {
            const std::size_t number = scan_.number ? *scan_.number : addresses.size() - before + 1;
            addresses.push_back(quoted(file) +
                                (several ? fmt::format(" --scan {}", number) : std::string()) +
                                settingsText(scan_));
        }
    }

    void writePage(const std::vector<PageScan>& scans, const PageRequest& request, Console& console,
                   Report& report) const {
        Ovr::Formats::AtomicFile file;
        requireOk(file.open(output_));
        const PageContent content = writeScanPage(file.stream(), scans, request, console);
        const auto length = static_cast<std::uint64_t>(file.stream().tellp());
        requireOk(file.commit());
        report.addCount("points", "points in it", content.points);
        report.addCount("returns", "of", content.returns);
        if (content.spacing > 0.0) {
            report.addMetres("spacing", "one in each cube of", content.spacing);
        } else {
            report.addHidden("spacing", Json::Value());
        }
        report.addCount("bytes", "bytes", length);
    }

    ScanOptions scan_;
    std::filesystem::path output_;
    std::optional<std::uint64_t> points_;
};

}  // namespace

std::unique_ptr<Command> makeViewCommand() {
    return std::make_unique<ViewCommand>();
}

}  // namespace ScanHost
