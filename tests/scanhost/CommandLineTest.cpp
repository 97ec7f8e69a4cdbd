// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Program.h"

namespace ScanHost::Tests {
namespace {

TEST(CommandLine, WrongUsageEndsWithTwo) {
    struct Case {
        const char* name;
        std::vector<std::string> arguments;
        const char* words;  // in the message
    };
    for (const Case& c : {
             Case{"nothing", {}, "expected one"},
             Case{"unknown command", {"frobnicate"}, "frobnicate"},
             Case{"unknown option", {"info", "a.las", "--frobnicate"}, "--frobnicate"},
             Case{"no file", {"info"}, "FILE"},
             Case{"word for a number", {"where", "a.las", "--at", "soon"}, "'soon'"},
             Case{"nan for a number", {"where", "a.las", "--at", "nan"}, "'nan'"},
             Case{"short point", {"near", "a.las", "--within", "1", "--point", "1,2"}, "'1,2'"},
             Case{"negative distance",
                  {"near", "a.las", "--within", "-1", "--point", "1,2,3"},
                  "0 or more"},
             Case{"no distance", {"near", "a.las", "--point", "1,2,3"}, "--within"},
             Case{"scan number 0", {"info", "a.ptx", "--scan", "0"}, "'0'"},
             Case{"time unit", {"times", "a.las", "--time-unit", "min"}, "'min'"},
             Case{"row alone", {"point", "a.ptx", "--row", "1"}, "--col"},
             Case{"two addresses",
                  {"point", "a.ptx", "--row", "1", "--col", "1", "--index", "3"},
                  "--index"},
             Case{"no address", {"point", "a.ptx"}, "--index"},
             Case{"two starts", {"path", "a.las", "--from", "0", "--from-time", "0"}, "--from"},
             Case{"no output", {"sort", "a.las"}, "--output"},
             Case{"verify what", {"export", "a.las", "--verify"}, "--output"},
         }) {
        const Outcome outcome = run(c.arguments);
        EXPECT_EQ(outcome.exitCode, 2) << c.name << '\n' << outcome.err;
        EXPECT_EQ(outcome.out, "") << c.name;
        EXPECT_EQ(outcome.err.find("scanhost: "), 0U) << c.name << '\n' << outcome.err;
        EXPECT_NE(outcome.err.find(c.words), std::string::npos) << c.name << '\n' << outcome.err;
    }
}

TEST(CommandLine, VersionIsThatOfTheModule) {
    EXPECT_EQ(run({"--version"}).out, "VardexScandata 13.2.0.14634\n");
}

}  // namespace
}  // namespace ScanHost::Tests
