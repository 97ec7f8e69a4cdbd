// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <stdexcept>
#include <string>

namespace ScanHost {

/// How the program ends, as seen by the shell.
enum class ExitCode : int {
    Done = 0,
    Failed = 1,
    WrongUsage = 2,
    Warned = 3,  ///< done, but there were warnings and the user is strict
    Cancelled = 130
};

/// Ends a command. The message is one line for people, without the program's name.
class Failure : public std::runtime_error {
  public:
    explicit Failure(const std::string& message, ExitCode code = ExitCode::Failed)
        : std::runtime_error(message), code_(code) {}

    ExitCode code() const { return code_; }

  private:
    ExitCode code_;
};

/// The Failure "PLACE: found FOUND, expected EXPECTED": where it is, what stands there and what
/// should.
Failure unexpected(const std::string& place, const std::string& found, const std::string& expected,
                   ExitCode code = ExitCode::Failed);

/// A command line that the declarations of its options do not allow.
class UsageError : public Failure {
  public:
    explicit UsageError(const std::string& message) : Failure(message, ExitCode::WrongUsage) {}
};

}  // namespace ScanHost
