// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "kit/AtomicFile.h"

#include "commands/CommandList.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/KnownFiles.h"
#include "session/ModuleSession.h"
#include "session/OutputRules.h"
#include "session/ProjectImport.h"
#include "session/Require.h"
#include "session/SpooledInput.h"
#include "view/ScanAddress.h"
#include "view/ScanPage.h"

namespace ScanHost {

namespace {

/// Shapes need lengths, and the same ones for all that is shown.
void requireLengths(const std::vector<ImportedScan>& scans) {
    for (const ImportedScan& scan : scans) {
        if (scan.units.horizontal.isAngle) {
            throw unexpected(scan.source.file.string(), "coordinates in " + scan.units.words(),
                             "a unit of length, see --unit");
        }
        if (scan.units.words() != scans.front().units.words()) {
            throw unexpected(scan.source.file.string(),
                             fmt::format("coordinates in {} after some in {}", scan.units.words(),
                                         scans.front().units.words()),
                             "scans in one unit, see --unit");
        }
    }
}

class ViewCommand final : public Command {
  public:
    std::string name() const override { return "view"; }
    std::string summary() const override {
        return "Write a page that shows scans in a browser, in one file";
    }
    void declare(Options& options) override {
        declareScanFiles(options, scan_);
        declareScanSettings(options, scan_);
        options.file("-o,--output", output_, "FILE", "The page to write").required();
        options.ordinal("--points", points_, "N", "a number of points, 1 or more",
                        "Thin the points evenly in space until at most N are left; without this "
                        "option as many as fit into a page of 15 MB, or 300000 when those are "
                        "more");
        declareForce(options, rules_);
    }
    void run(const CommonOptions& /*common*/, Console& console) override {
        const std::vector<std::string> names = scan_.files;
        const auto spooled = spoolInput(scan_, console);
        rules_.protect(scan_);
        rules_.check(page());
        ModuleSession session;
        ScanImporter importer(session, console);
        std::vector<ImportedScan> scans;
        std::vector<std::string> addresses;
        for (std::size_t i = 0; i < names.size(); ++i) {
            ScanOptions one = scan_;
            one.files = {scan_.files[i]};
            for (ImportedScan& scan :
                 importAll(session, importer, one, console, Content::PointsForTimes)) {
                rules_.protect(scan);
                scans.push_back(std::move(scan));
            }
            nameScans(names[i], scans.size(), addresses);
        }
        rules_.check(page());
        requireLengths(scans);
        std::vector<PageScan> pageScans;
        pageScans.reserve(scans.size());
        for (std::size_t i = 0; i < scans.size(); ++i) {
            pageScans.push_back(loadPageScan(scans[i], addresses[i], console));
        }
        Report report;
        writePage(pageScans,
                  {titleOf(names),
                   fmt::format("scanhost, {} {}", session.moduleName(), session.moduleVersion()),
                   points_},
                  console, report);
        console.show(report);
    }

  private:
    OutputFile page() const { return {output_, {".html", ".htm"}}; }

    static std::string titleOf(const std::vector<std::string>& names) {
        const std::string first = std::filesystem::path(names.front()).filename().string();
        return names.size() == 1 ? first : fmt::format("{} and {} more", first, names.size() - 1);
    }

    /// Names the scans that came from a file, up to @p count of all.
    void nameScans(const std::string& file, std::size_t count,
                   std::vector<std::string>& addresses) const {
        const std::size_t before = addresses.size();
        const bool several = count > before + 1 || scan_.number;
        while (addresses.size() < count) {
            const auto next = static_cast<std::uint32_t>(addresses.size() - before + 1);
            addresses.push_back(scanAddress(
                file, several ? std::optional(scan_.number.value_or(next)) : std::nullopt, scan_));
        }
    }

    void writePage(const std::vector<PageScan>& scans, const PageRequest& request, Console& console,
                   Report& report) const {
        Ovr::Formats::AtomicFile file;
        requireOk(file.open(output_, rules_.existing()));
        const PageContent content = writeScanPage(file.stream(), scans, request, console);
        requireOk(file.commit());
        report.addText("file", "page", output_.string());
        report.addCount("points", "points in it", content.points);
        report.addCount("returns", "of", content.returns);
        if (content.spacing > 0.0) {
            report.addNumber("spacing", "one in each cube of", content.spacing, kMetreDigits,
                             scans.front().scan.units.suffix());
        } else {
            report.addHidden("spacing", Json::Value());
        }
        report.addCount("bytes", "bytes", std::filesystem::file_size(output_));
    }

    ScanOptions scan_;
    OutputRules rules_;
    std::filesystem::path output_;
    std::optional<std::uint32_t> points_;
};

}  // namespace

std::unique_ptr<Command> makeViewCommand() {
    return std::make_unique<ViewCommand>();
}

}  // namespace ScanHost
