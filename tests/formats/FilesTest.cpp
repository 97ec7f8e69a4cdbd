// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "Hx/ErrorConversion.h"
#include "Ovr/FormatRegistry.h"
#include "support/LoadedScan.h"
#include "support/TempFolder.h"

namespace {

// The files of files.md are read, and must give the outcome that stands below each.

struct Case {
    std::string kind;  ///< extension of the file, from the heading
    std::string content;
    std::vector<std::string> outcome;
};

/// Spells out what the document writes short.
std::string spelledOut(const std::string& line) {
    const std::string whole =
        std::regex_replace(line, std::regex("^[(]placement[)]$"),
                           "0 0 0\n1 0 0\n0 1 0\n0 0 1\n1 0 0 0\n0 1 0 0\n0 0 1 0\n0 0 0 1");
    return std::regex_replace(whole, std::regex("[(]BOM[)]"), "\xEF\xBB\xBF");
}

std::vector<Case> casesOf(const std::string& document) {
    std::vector<Case> cases;
    std::ifstream lines(document);
    std::string kind;
    bool inBlock = false;
    for (std::string line; std::getline(lines, line);) {
        const bool indented = line.starts_with("    ");
        if (line.starts_with("## ")) {
            kind = line.substr(3);
        } else if (indented && !inBlock) {
            cases.push_back({kind, {}, {}});
        }
        if (line.starts_with("    => ")) {
            cases.back().outcome.push_back(line.substr(7));
        } else if (indented) {
            cases.back().content += spelledOut(line.substr(4)) + '\n';
        }
        inBlock = indented;
    }
    return cases;
}

/// Reads a file as far as the program would. Remarks are added to the lines.
Ovr::ErrorPtr readFile(const std::filesystem::path& file, std::vector<std::string>& lines) {
    const auto& registry = Ovr::FormatRegistry::the();
    const auto take = [&lines](const std::vector<std::string>& remarks) {
        lines.insert(lines.end(), remarks.begin(), remarks.end());
    };
    Ovr::ErrorPtr error;
    if (file.extension() == ".json") {
        Ovr::ProjectFile project;
        project.warnings = {"kept"};
        error = registry.readProject(file, project);
        EXPECT_EQ(project.warnings == std::vector<std::string>{"kept"}, error != nullptr);
        take(error ? std::vector<std::string>() : project.warnings);
    } else if (file.extension() == ".tum") {
        std::vector<Ovr::VardexLib::TrajectoryNode> nodes(300);
        Ovr::Remarks remarks;
        error = registry.readTrajectory(file, nullptr, nodes, remarks);
        EXPECT_EQ(nodes.size() == 300, error != nullptr) << "nodes are left alone";
        take(remarks.warnings());
    } else {
        std::vector<Ovr::ScanListing> scans;
        error = Ovr::listScans(file, scans);
        for (std::size_t i = 0; i < scans.size() && !error; ++i) {
            Support::StanceScan scan(scans[i].source);
            error = scan.loadPoints();
            take(scan.data.getWarnings());
        }
    }
    return error;
}

TEST(Files, GiveTheOutcomeThatStandsBelowThem) {
    const Support::TempFolder folder;
    const std::string scan = "1\n1\n" + spelledOut("(placement)") + "\n1 2 3 0.5\n";
    folder.write("hall.ptx", scan + scan);
    folder.write("broken.ptx", "no header\n");
    folder.write("walk.las", "x");
    const std::vector<Case> cases = casesOf(FILES_DOCUMENT);
    EXPECT_GT(cases.size(), 50U);
    const std::regex here(folder.path().string() + "/");
    for (const Case& c : cases) {
        const auto file = folder.write("a." + c.kind, c.content);
        std::vector<std::string> lines;
        if (const Ovr::ErrorPtr error = readFile(file, lines)) {
            lines = {std::to_string(Hx::convertError(*error, nullptr)) + " " + error->message()};
        }
        for (std::string& line : lines) {
            line = std::regex_replace(line, here, "");
        }
        EXPECT_EQ(lines, c.outcome) << c.content;
    }
}

}  // namespace
