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

TEST(OutputFile, TheSampleIsTheSameOnEveryMachine) {
    const Folder sample;
    ASSERT_EQ(run({"sample", sample.file("")}).exitCode, 0);
    // FNV-1a, 64 bits.
    struct Case {
        const char* file;
        std::uint64_t hash;
    };
    for (const Case& c : {
             Case{"room-a.ptx", 0xC1E41D124022C736U},
             Case{"room-b.ptx", 0xA1223E19B3558BFAU},
             Case{"walk.las", 0x465C3977CF4B9442U},
             Case{"walk.txt", 0x96BEC7B13E77A19BU},
             Case{"project.json", 0xABBF8345CC9914F1U},
         }) {
        std::uint64_t hash = 0xCBF29CE484222325U;
        for (const char byte : readFile(sample.file(c.file))) {
            hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
        }
        EXPECT_EQ(hash, c.hash) << c.file;
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
