// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Hx/ErrorConversion.h"
#include "Ovr/FormatRegistry.h"
#include "support/LasBytes.h"
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

/// A LAS 1.2 file of two points with times, and the changes that are asked for: "byte N HEX" puts
/// bytes there, "size N" cuts the file.
std::string lasFile(const std::string& changes) {
    Support::LasBytes las;
    las.points.resize(2);
    std::string bytes = las.bytes();
    std::istringstream lines(changes);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string what;
        std::size_t place = 0;
        std::string hex;
        words >> what >> place >> hex;
        if (what == "size") {
            bytes.resize(place);
        }
        for (; hex.size() >= 2; hex.erase(0, 2)) {
            bytes.at(place++) = static_cast<char>(std::stoi(hex.substr(0, 2), nullptr, 16));
        }
    }
    return bytes;
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
    } else if (file.extension() == ".las") {
        Ovr::ScanSource source;
        source.file = file;
        Support::MobileScan scan(source);
        scan.memory.setNewSize(3, 3, true, true);
        error = scan.loadPoints();
        EXPECT_TRUE(!error || scan.memory.records.empty()) << "points of before are gone";
        error = error ? std::move(error) : scan.loadTimes();
        take(scan.data.getWarnings());
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
    folder.write("empty.las", "");
    const std::vector<Case> cases = casesOf(FILES_DOCUMENT);
    EXPECT_GT(cases.size(), 50U);
    const std::regex here(folder.path().string() + "/");
    for (const Case& c : cases) {
        const auto file =
            folder.write("a." + c.kind, c.kind == "las" ? lasFile(c.content) : c.content);
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
