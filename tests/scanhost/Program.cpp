// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <memory>

namespace ScanHost::Tests {

namespace {

constexpr int kSmallestPipe = 4096;

/// What becomes of the streams and signals of a new process.
class Spawn {
  public:
    Spawn() {
        posix_spawn_file_actions_init(&actions_);
        posix_spawnattr_init(&attributes_);
        // A test started in the background has SIGINT ignored, and would hand that on.
        sigset_t signals;
        sigemptyset(&signals);
        sigaddset(&signals, SIGINT);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }
    Spawn(const Spawn&) = delete;
    Spawn& operator=(const Spawn&) = delete;
    ~Spawn() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }

    void toFile(int stream, const std::string& file) {
        posix_spawn_file_actions_addopen(&actions_, stream, file.c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
    }
    void toDescriptor(int stream, int descriptor) {
        posix_spawn_file_actions_adddup2(&actions_, descriptor, stream);
    }
    void inFolder(const std::filesystem::path& folder) {
        posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
    }

    int run(const std::vector<std::string>& arguments) {
        std::vector<std::string> words{SCANHOST_PROGRAM};
        words.insert(words.end(), arguments.begin(), arguments.end());
        return runProgram(std::move(words));
    }
    /// @param words  the path of a program, and its arguments
    int runProgram(std::vector<std::string> words) {
        std::vector<char*> pointers;
        pointers.reserve(words.size() + 1);
        for (std::string& word : words) {
            pointers.push_back(word.data());
        }
        pointers.push_back(nullptr);
        pid_t process = -1;
        EXPECT_EQ(posix_spawn(&process, words.front().c_str(), &actions_, &attributes_,
                              pointers.data(), environ),
                  0)
            << words.front();
        return process;
    }

  private:
    posix_spawn_file_actions_t actions_;
    posix_spawnattr_t attributes_;
};

std::string joined(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) {
        line += word + ' ';
    }
    return line;
}

}  // namespace

std::vector<std::string> Folder::names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path())) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

Outcome run(const std::vector<std::string>& arguments) {
    const Folder folder;
    Spawn spawn;
    spawn.toFile(STDOUT_FILENO, folder.file("out"));
    spawn.toFile(STDERR_FILENO, folder.file("err"));
    const int exitCode = waitFor(spawn.run(arguments));
    return {exitCode, readFile(folder.file("out")), readFile(folder.file("err"))};
}

Outcome runShell(const std::string& line, const std::filesystem::path& folder) {
    const Folder outputs;
    Spawn spawn;
    spawn.toFile(STDOUT_FILENO, outputs.file("out"));
    spawn.toDescriptor(STDERR_FILENO, STDOUT_FILENO);
    spawn.inFolder(folder);
    const std::string path = std::filesystem::path(SCANHOST_PROGRAM).parent_path().string();
    const int exitCode =
        waitFor(spawn.runProgram({"/bin/bash", "-c", "PATH='" + path + "':$PATH\n" + line}));
    return {exitCode, readFile(outputs.file("out")), {}};
}

Json::Value parseJson(const std::string& text) {
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    Json::Value document;
    std::string errors;
    EXPECT_TRUE(reader->parse(text.data(), text.data() + text.size(), &document, &errors))
        << errors << text;
    return document;
}

Json::Value runJson(std::vector<std::string> arguments) {
    arguments.emplace_back("--json");
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.exitCode, 0) << joined(arguments) << '\n' << outcome.err;
    return parseJson(outcome.out);
}

int start(const std::vector<std::string>& arguments, const std::string& outFile, int& pipe) {
    int ends[2] = {-1, -1};
    EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    EXPECT_EQ(fcntl(ends[1], F_SETPIPE_SZ, kSmallestPipe), kSmallestPipe);
    Spawn spawn;
    spawn.toFile(STDOUT_FILENO, outFile);
    spawn.toDescriptor(STDERR_FILENO, ends[1]);
    const int process = spawn.run(arguments);
    close(ends[1]);
    pipe = ends[0];
    return process;
}

std::string drain(int pipe) {
    std::string text;
    std::array<char, kSmallestPipe> block;
    for (ssize_t count = 0; (count = read(pipe, block.data(), block.size())) > 0;) {
        text.append(block.data(), static_cast<std::size_t>(count));
    }
    close(pipe);
    return text;
}

int waitFor(int process) {
    int status = 0;
    EXPECT_EQ(waitpid(process, &status, 0), process);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace ScanHost::Tests
