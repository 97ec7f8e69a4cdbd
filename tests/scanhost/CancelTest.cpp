// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>

#include "Program.h"
#include "support/LasBytes.h"

namespace ScanHost::Tests {
namespace {

constexpr std::uint32_t kPoints = 2'000'000;
constexpr std::uint16_t kRecordLength = 28;

/// A LAS file whose points are all zero: large for the program, small on the disk.
void writeLargeScan(const Folder& folder, const std::string& name) {
    std::string header = Support::LasBytes{}.bytes();
    Support::poke(header, 107, kPoints);
    std::filesystem::resize_file(folder.write(name, header),
                                 header.size() + std::uint64_t{kPoints} * kRecordLength);
}

/// Waits until so much stands in a pipe that its writer is stuck.
bool waitUntilFull(int pipe, int bytes) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(120);
    while (std::chrono::steady_clock::now() < deadline) {
        int waiting = 0;
        if (ioctl(pipe, FIONREAD, &waiting) != 0 || waiting >= bytes) {
            return waiting >= bytes;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

// The program reports its progress into a pipe that nobody reads. It gets stuck there, in the
// middle of its work, however fast or loaded the machine is: the signal cannot come too late.
TEST(Cancel, CtrlCEndsLongWorkWithoutOutput) {
    const Folder folder;
    const std::string longName(180, 'x');
    writeLargeScan(folder, longName + ".las");
    int pipe = -1;
    const int process = start(
        {"sort", folder.file(longName + ".las"), "-o", folder.file("out.las"), "--progress=plain"},
        folder.file("stdout"), pipe);
    EXPECT_TRUE(waitUntilFull(pipe, 4096 - 256));
    EXPECT_EQ(kill(process, SIGINT), 0);
    const std::string err = drain(pipe);
    EXPECT_EQ(waitFor(process), 130) << err;
    EXPECT_NE(err.find("scanhost: " + longName + ".las: reading times"), std::string::npos) << err;
    EXPECT_EQ(err.find(" 99 %"), std::string::npos) << err;
    EXPECT_NE(err.find("cancelled"), std::string::npos) << err;
    EXPECT_EQ(readFile(folder.file("stdout")), "");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"stdout", longName + ".las"}));
}

}  // namespace
}  // namespace ScanHost::Tests
