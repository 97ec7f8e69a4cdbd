// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

#include "Program.h"

namespace ScanHost::Tests {
namespace {

/// All parts of a text that match an expression's first group.
std::set<std::string> found(const std::string& text, const char* expression) {
    const std::regex regex(expression);
    std::set<std::string> parts;
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match) {
        parts.insert((*match)[1].str());
    }
    return parts;
}

/// The names that begin lines of a help text, after two blanks.
std::set<std::string> optionsIn(const std::string& help) {
    return found(help, R"((?:^|\n)  (?:-.,)?(--[a-z-]+))");
}

const std::set<std::string> kCommands{"info", "picture", "point",  "times", "where",    "path",
                                      "view", "near",    "export", "sort",  "commands", "sample"};

TEST(GeneratedText, HelpManualAndCompletionNameEveryCommandAndOption) {
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.err, "");
    const std::string commands = help.out.substr(help.out.find("Commands:"));
    EXPECT_EQ(found(commands, R"(\n  ([a-z]+) )"), kCommands);
    const Outcome manual = run({"--manual"});
    EXPECT_EQ(manual.exitCode, 0);
    EXPECT_EQ(manual.out.find(".TH scanhost 1"), 0U);
    // A word is one to copy only with a hyphen that stays a hyphen.
    const std::string page = std::regex_replace(manual.out, std::regex(R"(\\-)"), "-");
    for (const std::string& option : optionsIn(help.out)) {
        EXPECT_NE(page.find("\\fB" + option + "\\fR"), std::string::npos) << option;
    }
    const std::string script = run({"--completion"}).out;
    for (const std::string& command : kCommands) {
        const Outcome own = run({command, "--help"});
        EXPECT_EQ(own.exitCode, 0) << command;
        const std::size_t begin = page.find(".SS \\fBscanhost\\fR \\fB" + command + "\\fR");
        ASSERT_NE(begin, std::string::npos) << command;
        const std::string section = page.substr(begin, page.find(".S", begin + 1) - begin);
        std::set<std::string> options = optionsIn(own.out);
        EXPECT_TRUE(options.contains("--json")) << command;
        const std::size_t branch = script.find('"' + command + " \"*)");
        const std::string line = script.substr(branch, script.find('\n', branch) - branch);
        EXPECT_EQ(found(line, "(--[a-z-]+)"), options) << command;
        options.erase("--help");
        EXPECT_EQ(found(section, R"(\n(?:\\fB-.\\fR, )?\\fB(--[a-z-]+))"), options) << command;
    }
}

}  // namespace
}  // namespace ScanHost::Tests
