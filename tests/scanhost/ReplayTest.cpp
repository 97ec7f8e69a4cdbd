// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "Program.h"

namespace ScanHost::Tests {
namespace {

// The sessions of README.md and docs/*.md are run again and must print what stands there. A session
// is a block of lines indented by four blanks that begins with "$ "; each line that begins so is
// run in bash, the lines after it are what it prints on either stream. The sessions of a document
// run one after the other in a folder that has the sample. Two marks stand for what a document
// leaves out, or what depends on the machine: a line of "..." alone for any number of lines, and
// "..." at the end of a line for the rest of that line.

constexpr const char* kIndent = "    ";
constexpr const char* kPrompt = "$ ";
constexpr const char* kMark = "...";

struct Step {
    std::string command;
    std::vector<std::string> expected;
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

std::vector<Step> stepsOf(const std::string& document) {
    std::vector<Step> steps;
    bool inBlock = false;
    bool inSession = false;
    for (const std::string& line : linesOf(document)) {
        const bool indented = line.starts_with(kIndent);
        if (indented || (line.empty() && inBlock)) {
            addLine(indented ? line.substr(4) : line, !inBlock, steps, inSession);
        } else if (!line.empty()) {
            inSession = false;
        }
        inBlock = indented || (line.empty() && inBlock);
    }
    for (Step& step : steps) {
        while (!step.expected.empty() && step.expected.back().empty()) {
            step.expected.pop_back();
        }
    }
    return steps;
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

TEST(Replay, SessionsOfTheDocumentsPrintWhatStandsThere) {
    const std::filesystem::path root = SCANHOST_DOCUMENTS;
    std::vector<std::filesystem::path> documents{root / "README.md"};
    for (const auto& entry : std::filesystem::directory_iterator(root / "docs")) {
        documents.push_back(entry.path());
    }
    std::map<std::string, std::size_t> stepsIn;
    for (const std::filesystem::path& document : documents) {
        const std::vector<Step> steps = stepsOf(readFile(document));
        stepsIn[document.filename().string()] = steps.size();
        const Folder folder;
        ASSERT_EQ(run({"sample", folder.file("sample")}).exitCode, 0);
        for (const Step& step : steps) {
            const std::string printed = runShell(step.command, folder.path()).out;
            EXPECT_TRUE(matches(step.expected, linesOf(printed)))
                << document.filename() << ": " << step.command << " prints now\n"
                << printed;
        }
    }
    EXPECT_GT(stepsIn["README.md"], 3U);
    EXPECT_GT(stepsIn["scanhost.md"], 15U);
}

}  // namespace
}  // namespace ScanHost::Tests
