// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "Program.h"

namespace ScanHost::Tests {
namespace {

const std::vector<std::string> kSampleFiles{"project.json", "room-a.ptx", "room-b.ptx", "walk.las",
                                            "walk.txt"};

TEST(OutputFile, AppearsWholeOrNotAtAll) {
    const Folder sample;
    ASSERT_EQ(run({"sample", sample.file("")}).exitCode, 0);
    EXPECT_EQ(sample.names(), kSampleFiles);
    struct Case {
        const char* name;
        std::vector<std::string> arguments;  // the output file follows
    };
    const std::string walk = sample.file("walk.las");
    for (const Case& c : {
             Case{"sorted points", {"sort", walk, "-o"}},
             Case{"trajectory", {"export", walk, "-o"}},
             Case{"picture", {"info", walk, "--picture"}},
             Case{"project output", {"info", sample.file("project.json"), "--project-output"}},
         }) {
        const Folder folder;
        std::vector<std::string> arguments = c.arguments;
        arguments.push_back(folder.file("no-folder/out"));
        const Outcome nowhere = run(arguments);
        EXPECT_EQ(nowhere.exitCode, 1) << c.name << '\n' << nowhere.err;
        EXPECT_NE(nowhere.err.find("no-folder/out"), std::string::npos) << c.name << nowhere.err;
        arguments.back() = folder.write("out", "an earlier file");
        EXPECT_EQ(run(arguments).exitCode, 0) << c.name;
        EXPECT_EQ(folder.names(), std::vector<std::string>{"out"}) << c.name;
        EXPECT_NE(readFile(folder.file("out")), "an earlier file") << c.name;
    }
}

TEST(OutputFile, FullStandardOutputIsAFailure) {
    const Folder folder;
    int pipe = -1;
    const int process = start({"--version"}, "/dev/full", pipe);
    EXPECT_EQ(waitFor(process), 1);
    EXPECT_NE(drain(pipe).find("standard output"), std::string::npos);
}

}  // namespace
}  // namespace ScanHost::Tests
