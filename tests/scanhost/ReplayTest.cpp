// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "Program.h"
#include "support/LasBytes.h"

namespace ScanHost::Tests {
namespace {

// The sessions of a document are run again and must print what stands there. A session is a block
// of lines indented by four blanks that begins with "$ "; each line that begins so is run in bash,
// the lines after it are what it prints on either stream. The sessions of a document run one after
// the other in one folder. A block after a line "File NAME:" is a file in that folder. Two marks
// stand for what a document leaves out, or what depends on the machine: a line of "..." alone for
// any number of lines, and "..." at the end of a line for the rest of that line. A JSON document
// that begins with more than a brace is compared value by value, numbers to nine digits.

constexpr const char* kIndent = "    ";
constexpr const char* kPrompt = "$ ";
constexpr const char* kMark = "...";
constexpr const char* kFile = "File ";

struct Step {
    std::string command;
    std::vector<std::string> expected;
};

struct Sessions {
    std::map<std::string, std::string> files;
    std::vector<Step> steps;
};

/// The lines without the blanks at their ends, which a document cannot show.
std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line.substr(0, line.find_last_not_of(' ') + 1));
    }
    return lines;
}

void addLine(const std::string& line, bool blockBegins, std::vector<Step>& steps, bool& inSession) {
    if (line.starts_with(kPrompt)) {
        inSession = inSession || blockBegins;
        if (inSession) {
            steps.push_back({line.substr(2), {}});
        }
    } else if (inSession) {
        steps.back().expected.push_back(line);
    }
}

Sessions sessionsOf(const std::string& document) {
    Sessions sessions;
    std::string file;
    bool inBlock = false;
    bool inSession = false;
    for (const std::string& line : linesOf(document)) {
        const bool indented = line.starts_with(kIndent);
        if (indented && !file.empty()) {
            sessions.files[file] += line.substr(4) + '\n';
        } else if (indented || (line.empty() && inBlock)) {
            addLine(indented ? line.substr(4) : line, !inBlock, sessions.steps, inSession);
        } else if (!line.empty()) {
            inSession = false;
            const bool named = line.starts_with(kFile) && line.ends_with(':');
            file = named ? line.substr(5, line.size() - 6) : "";
        }
        inBlock = file.empty() && (indented || (line.empty() && inBlock));
        if (line.empty() && sessions.files.contains(file)) {
            file.clear();  // a blank line ends a file
        }
    }
    for (Step& step : sessions.steps) {
        while (!step.expected.empty() && step.expected.back().empty()) {
            step.expected.pop_back();
        }
    }
    return sessions;
}

bool lineMatches(const std::string& expected, const std::string& actual) {
    return expected == actual ||
           (expected.ends_with(kMark) &&
            actual.starts_with(expected.substr(0, expected.size() - std::string(kMark).size())));
}

bool matches(std::span<const std::string> expected, std::span<const std::string> actual) {
    if (expected.empty()) {
        return actual.empty();
    }
    const std::string& first = expected.front();
    if (first.ends_with(kMark) && first.find_first_not_of(" .") == std::string::npos) {
        for (std::size_t skipped = 0; skipped <= actual.size(); ++skipped) {
            if (matches(expected.subspan(1), actual.subspan(skipped))) {
                return true;
            }
        }
        return false;
    }
    return !actual.empty() && lineMatches(first, actual.front()) &&
           matches(expected.subspan(1), actual.subspan(1));
}

bool matches(const Json::Value& expected, const Json::Value& actual) {
    if (expected.isString() && actual.isString()) {
        return lineMatches(expected.asString(), actual.asString());
    }
    if (expected.isNumeric() && actual.isNumeric()) {
        return std::abs(expected.asDouble() - actual.asDouble()) <= 1e-9;
    }
    if (expected.isObject() && actual.isObject() &&
        expected.getMemberNames() != actual.getMemberNames()) {
        return false;
    }
    return expected.type() == actual.type() && expected.size() == actual.size() &&
           (expected.empty()
                ? expected == actual
                : std::equal(expected.begin(), expected.end(), actual.begin(),
                             [](const auto& a, const auto& b) { return matches(a, b); }));
}

bool prints(const Step& step, const std::string& printed) {
    if (step.expected.empty() || !step.expected.front().starts_with('{') ||
        step.expected.front() == "{") {
        return matches(step.expected, linesOf(printed));
    }
    std::string expected;
    for (const std::string& line : step.expected) {
        expected += line + '\n';
    }
    return matches(parseJson(expected), parseJson(printed));
}

/// @return number of commands that were run
std::size_t replay(const std::filesystem::path& document, const Folder& folder) {
    const Sessions sessions = sessionsOf(readFile(document));
    for (const auto& [name, content] : sessions.files) {
        folder.write(name, content);
    }
    for (const Step& step : sessions.steps) {
        const std::string printed = runShell(step.command, folder.path()).out;
        EXPECT_TRUE(prints(step, printed))
            << document.filename() << ": " << step.command << " prints now\n"
            << printed;
    }
    return sessions.steps.size();
}

TEST(Replay, SessionsOfTheDocumentsPrintWhatStandsThere) {
    const std::filesystem::path root = SCANHOST_DOCUMENTS;
    std::vector<std::filesystem::path> documents{root / "README.md"};
    for (const auto& entry : std::filesystem::directory_iterator(root / "docs")) {
        documents.push_back(entry.path());
    }
    std::map<std::string, std::size_t> stepsIn;
    for (const std::filesystem::path& document : documents) {
        const Folder folder;
        stepsIn[document.filename().string()] = replay(document, folder);
    }
    EXPECT_GT(stepsIn["README.md"], 3U);
    EXPECT_GT(stepsIn["scanhost.md"], 15U);
}

/// The LAS files of the sessions that are worked by hand, in steps of 0.25 m.
void writeLasFiles(const Folder& folder) {
    Support::LasBytes walk;
    walk.format = 3;
    walk.encoding = 1;
    walk.scale.fill(0.25);
    walk.offset = {1000, 2000, 300};
    walk.system = "Corvin 7";
    walk.software = "maker 1.2";
    // 257 steps of a channel in 16 bits are one in 8.
    walk.points = {{{0, 0, 0}, 100, 700001.5, {2570, 5140, 7710}},
                   {{40, 0, 0}, 200, 700000.5, {10280, 12850, 15420}},
                   {{0, 20, 0}, 300, 700000.5, {17990, 20560, 23130}},
                   {{40, 20, 8}, 400, 700003.0, {25700, 28270, 30840}},
                   {{20, 10, 4}, 1000, 700003.5, {33410, 35980, 38550}}};
    folder.write("walk.las", walk.bytes());
    Support::LasBytes lift;
    lift.scale.fill(0.25);
    lift.offset = {10, 20, 0};
    lift.points = {{{0, 0, 0}, 50, 0.1, {}}, {{0, 0, 8}, 100, 2.3, {}}, {{0, 0, 4}, 150, 1.2, {}}};
    folder.write("lift.las", lift.bytes());
    lift.points = {{{-120000, 0, 0}, 0, 0.0, {}}, {{120000, 0, 0}, 0, 1.0, {}}};
    lift.offset = {};
    lift.minimum = {-30000, 0, 0};
    lift.maximum = {30000, 0, 0};
    folder.write("wide.las", lift.bytes());
    lift.format = 0;
    folder.write("untimed.las", lift.bytes());
    lift.points.clear();
    folder.write("none.las", lift.bytes());
    Support::LasBytes doubtful;
    doubtful.minor = 4;
    doubtful.encoding = 1;
    doubtful.vlrCount = 1;
    doubtful.points.resize(1);
    std::string bytes = doubtful.bytes();
    Support::poke(bytes, 107, std::uint32_t{2});
    folder.write("doubtful.las", bytes);
    Support::LasBytes timed;
    timed.points = {{{}, 0, 100.0, {}}, {{}, 0, 101.0, {}}};
    folder.write("timed.las", timed.bytes());
    timed.points = {{{}, 0, 0.0, {}}, {{}, 0, 4295.0, {}}};
    folder.write("long.las", timed.bytes());
}

TEST(Replay, SessionsWorkedByHandPrintWhatWasWorkedOut) {
    const std::filesystem::path room =
        std::filesystem::path(SCANHOST_DOCUMENTS) / "tests" / "scanhost";
    for (const auto& [document, steps] :
         {std::pair{"by-hand.md", 45U}, {"refusals.md", 40U}, {"told.md", 60U}}) {
        const Folder folder;
        writeLasFiles(folder);
        EXPECT_GT(replay(room / document, folder), steps) << document;
    }
}

}  // namespace
}  // namespace ScanHost::Tests
