// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <json/json.h>

#include "support/TempFolder.h"

namespace ScanHost::Tests {

/// A folder of its own, with names as the program takes and prints them.
class Folder : public Support::TempFolder {
  public:
    std::string file(const std::string& name) const { return (path() / name).string(); }
    std::string write(const std::string& name, const std::string& content) const {
        return TempFolder::write(name, content).string();
    }
    /// Names of all that is in it, ascending.
    std::vector<std::string> names() const;
};

inline std::string readFile(const std::filesystem::path& file) {
    return Support::TempFolder::read(file);
}

/// How a run of the program went.
struct Outcome {
    int exitCode = -1;  ///< 128 + the signal's number when a signal ended it
    std::string out;
    std::string err;
};

/// Runs the built program and waits for it.
Outcome run(const std::vector<std::string>& arguments);

/// Runs a line in bash, where "scanhost" is the built program.
/// @param folder  to run it in
/// @return its standard output and standard error, both in Outcome::out
Outcome runShell(const std::string& line, const std::filesystem::path& folder);

/// Fails the test unless the text is one strict JSON document.
Json::Value parseJson(const std::string& text);

/// Runs the program with --json and gives the document; fails the test unless the exit code is 0
/// and standard output holds one strict JSON document and nothing else.
Json::Value runJson(std::vector<std::string> arguments);

/// Starts the program with its standard error in a pipe that is full after 4096 bytes, and its
/// standard output in a file.
/// @param pipe  out: read end of the pipe
/// @return process id
int start(const std::vector<std::string>& arguments, const std::string& outFile, int& pipe);
/// Everything that comes out of a pipe until its writer ends. Closes it.
std::string drain(int pipe);
/// Waits for a started program. @return as in Outcome::exitCode
int waitFor(int process);

}  // namespace ScanHost::Tests
