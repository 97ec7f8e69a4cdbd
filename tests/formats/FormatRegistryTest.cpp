// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/FormatRegistry.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Ovr/Origin.h"
#include "support/ExpectError.h"
#include "support/LasBytes.h"
#include "support/TempFolder.h"

namespace {

using enum Ovr::Interfaces::ErrorCode;
using Origin = std::optional<Tq_1_1::Vec3d<double>>;

const std::string kPtx = "\n1\n1\n0 0 0\n1 0 0\n0 1 0\n0 0 1\n1 0 0 0\n";

std::string lasAt(double x, std::size_t points = 1) {
    Support::LasBytes las;
    las.offset = {x, 200.0, -0.0};
    las.points.resize(points);
    return las.bytes();
}

TEST(FormatRegistry, RecognisesFilesByContentFirstAndByNameSecond) {
    const struct {
        const char* file;
        std::string content;
        const char* format;  ///< "" for none, "project" for a project file
    } cases[] = {
        {"las.ptx", lasAt(0), "LAS"},  {"noExtension", kPtx, "PTX"},
        {"ptx.las", kPtx, "PTX"},      {"name.PTX", "hello", "PTX"},
        {"name.Las", "hello", "LAS"},  {"words.unknown", "1 2 3\n4 5 6\n7 8 9\n", ""},
        {"counts.txt", "1\n1\n", ""},  {"project.txt", "\xEF\xBB\xBF \n{", "project"},
        {"empty.JSON", "", "project"},
    };
    const Support::TempFolder folder;
    const auto& registry = Ovr::FormatRegistry::the();
    for (const auto& c : cases) {
        const auto file = folder.write(c.file, c.content);
        const auto format = registry.find(file);
        const std::string found = registry.isProject(file) ? "project"
                                  : format                 ? format->name()
                                                           : "";
        EXPECT_EQ(found, c.format) << c.file;
    }
    EXPECT_EQ(registry.find(folder.path() / "none.las")->name(), "LAS");
    EXPECT_THAT(registry.knownExtensions(), testing::ContainsRegex("[.]las, .*[.]ptx"));
}

TEST(Origin, IsThatOfTheFirstScanWithAPlaceOrAPose) {
    const Support::TempFolder folder;
    folder.write("stance.ptx", kPtx);
    folder.write("stance.txt", "0 9000 0 0 0 0 0 1\n");  // no trajectory: stances have none
    folder.write("far.las", lasAt(1000.0));
    folder.write("near.las", lasAt(100.0));
    folder.write("empty.las", lasAt(100.0, 0));
    folder.write("walk.las", lasAt(100.0, 0));
    folder.write("walk.txt", "0 5000 0 0 0 0 0 1\n1 7000 0 0 0 0 0 1\n");
    const struct {
        std::vector<const char*> files;
        Origin origin;
    } cases[] = {
        {{"stance.ptx", "empty.las"}, std::nullopt},
        {{"stance.ptx", "empty.las", "far.las", "near.las"}, Origin({1000.0, 200.0, 0.0})},
        {{"near.las", "walk.las"}, Origin({100.0, 200.0, 0.0})},
        {{"walk.las", "near.las"}, Origin({5000.0, 0.0, 0.0})},
    };
    for (const auto& c : cases) {
        const auto project = std::make_shared<Ovr::ScanProject>();
        std::vector<Ovr::ScanListing> scans;
        for (const char* file : c.files) {
            Ovr::ScanListing scan;
            scan.source.file = folder.path() / file;
            scan.source.project = project;
            scan.classIdentifier =
                Ovr::FormatRegistry::the().find(scan.source.file)->classIdentifier();
            scans.push_back(scan);
        }
        Ovr::chooseOrigin(scans);
        EXPECT_EQ(project->origin(), c.origin) << c.files.front();
    }
}

}  // namespace
