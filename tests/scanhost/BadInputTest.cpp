// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "Program.h"
#include "support/LasBytes.h"

namespace ScanHost::Tests {
namespace {

constexpr const char* kPtxHeader =
    "2\n2\n0 0 0\n1 0 0\n0 1 0\n0 0 1\n1 0 0 0\n0 1 0 0\n0 0 1 0\n0 0 0 1\n";
constexpr const char* kPtxPoints = "1 0 0 0.5\n1 1 0 0.5\n1 0 1 0.5\n1 1 1 0.5\n";

/// A file of two points with times, format 1.
std::string timedScan(double first, double last) {
    Support::LasBytes las;
    las.points = {{{}, 0, first, {}}, {{}, 0, last, {}}};
    return las.bytes();
}

/// A file of points without times, format 0.
std::string untimedScan() {
    Support::LasBytes las;
    las.format = 0;
    las.points.resize(2);
    return las.bytes();
}

/// The lines of standard error that are no warnings.
std::vector<std::string> errorLines(const std::string& err) {
    std::vector<std::string> lines;
    std::istringstream stream(err);
    for (std::string line; std::getline(stream, line);) {
        if (line.find("scanhost: warning: ") != 0) {
            lines.push_back(line);
        }
    }
    return lines;
}

/// Runs the program, which must fail with one line that names a file and all the words.
void expectFailure(const std::string& name, const std::vector<std::string>& arguments,
                   const std::string& file, const std::vector<std::string>& words) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.exitCode, 1) << name << '\n' << outcome.err;
    EXPECT_EQ(outcome.out, "") << name;
    const std::vector<std::string> lines = errorLines(outcome.err);
    ASSERT_EQ(lines.size(), 1U) << name << '\n' << outcome.err;
    EXPECT_EQ(lines[0].find("scanhost: " + file), 0U) << name << '\n' << lines[0];
    for (const std::string& word : words) {
        EXPECT_NE(lines[0].find(word), std::string::npos) << name << '\n' << lines[0];
    }
}

TEST(BadInput, FilesAreRefusedWithPlaceAndReason) {
    struct Case {
        const char* name;
        const char* file;
        std::string content;
        std::vector<std::string> words;
    };
    const std::string header = kPtxHeader;
    for (const Case& c : {
             Case{"unknown extension", "a.unknown", "1 2 3\n", {".unknown", ".las", ".ptx"}},
             Case{"cut scan", "a.ptx", header + "1 0 0 0.5\n", {"line 11", "4"}},
             Case{"no JSON", "a.json", "{\"version\": 1,\n \"scans\": [}", {"line 2", "column"}},
             Case{
                 "project without its scan",
                 "a.json",
                 R"({"version": 1, "scans": [{"kind": "mobile", "name": "a", "points": "b.las"}]})",
                 {"line 1", "b.las"}},
         }) {
        const Folder folder;
        const std::string file = folder.write(c.file, c.content);
        expectFailure(c.name, {"info", file}, file, c.words);
        expectFailure(c.name, {"info", file, "--json"}, file, c.words);
    }
    const Folder folder;
    expectFailure("missing project", {"info", folder.file("no.json")}, folder.file("no.json"), {});
}

TEST(BadInput, QuestionsThatAScanCannotAnswer) {
    const Folder folder;
    const std::string stance = folder.write("stance.ptx", std::string(kPtxHeader) + kPtxPoints);
    const std::string two =
        folder.write("two.ptx", std::string(kPtxHeader) + kPtxPoints + kPtxHeader + kPtxPoints);
    const std::string untimed = folder.write("untimed.las", untimedScan());
    const std::string timed = folder.write("timed.las", timedScan(100.0, 101.0));
    const std::string later = folder.write("later.tum", "900 0 0 0 0 0 0 1\n902 1 0 0 0 0 0 1\n");
    const std::string broken = folder.write("broken.tum", "100 0 0 0 0 0 0 1\n101 0 0\n");
    struct Case {
        const char* name;
        std::vector<std::string> arguments;
        std::string file;
        std::vector<std::string> words;
    };
    for (const Case& c : {
             Case{"no mobile scan", {"where", stance, "--at", "1"}, stance, {"stationary"}},
             Case{"which scan", {"point", two, "--index", "0"}, two, {"2 scans", "--scan"}},
             Case{"row outside",
                  {"point", stance, "--row", "2", "--col", "0"},
                  stance,
                  {"row 2", "2 rows x 2 columns"}},
             Case{"index outside", {"point", stance, "--index", "4"}, stance, {"index 4"}},
             Case{"no times", {"times", untimed}, untimed, {"format 0"}},
             Case{"no trajectory", {"path", timed}, timed, {"no trajectory", "--trajectory"}},
             Case{"broken trajectory",
                  {"info", timed, "--trajectory", broken},
                  broken,
                  {"line 2", "3 fields"}},
             Case{"clocks apart",
                  {"times", timed, "--trajectory", later},
                  timed,
                  {"100", "900", "--time-offset"}},
         }) {
        expectFailure(c.name, c.arguments, c.file, c.words);
    }
}

TEST(BadInput, TimesAreBroughtOntoTheClockOfTheTrajectory) {
    const Folder folder;
    const std::string timed = folder.write("timed.las", timedScan(100.0, 101.0));
    const std::string later = folder.write("later.tum", "900 0 0 0 0 0 0 1\n902 1 0 0 0 0 0 1\n");
    EXPECT_EQ(runJson({"times", timed, "--trajectory", later, "--time-offset", "800"})["duration"],
              2.0);
    const Json::Value thousandth = runJson({"times", timed, "--time-unit", "ms"})["duration"];
    EXPECT_NEAR(thousandth.asDouble(), 0.001, 1e-12);
}

TEST(BadInput, InfoShowsWhatItCanAndWarns) {
    const Folder folder;
    const std::string scan = folder.write("long.las", timedScan(0.0, 4295.0));
    const Json::Value document = runJson({"info", scan});
    EXPECT_EQ(document["scans"][0]["points"], 2) << "also at the origin of their coordinates";
    EXPECT_TRUE(document["scans"][0]["times"].isNull());
    ASSERT_EQ(document["warnings"].size(), 1U) << document["warnings"];
    EXPECT_NE(document["warnings"][0].asString().find("4294.967295"), std::string::npos);
    const Outcome text = run({"info", scan});
    EXPECT_EQ(text.err, "scanhost: warning: " + document["warnings"][0].asString() + "\n");
}

}  // namespace
}  // namespace ScanHost::Tests
