// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>

#include "report/Console.h"
#include "session/ScanOptions.h"

namespace ScanHost {

/// Standard input as a file: what comes in goes into a temporary file that has no name any more, so
/// that nothing of it is left however the program ends.
class SpooledInput {
  public:
    /// What the user writes for standard input, and what messages call it.
    static constexpr const char* kSign = "-";
    static constexpr const char* kName = "stdin";

    /// Reads standard input to its end. Throws a Failure when that fails.
    SpooledInput();
    SpooledInput(const SpooledInput&) = delete;
    SpooledInput& operator=(const SpooledInput&) = delete;
    ~SpooledInput();

    /// A path that opens the file, as long as this lives.
    const std::string& path() const { return path_; }

  private:
    void copy();

    int descriptor_ = -1;
    std::string path_;
};

/// Spools standard input where the options name it as a file, and lets the console call it by its
/// name. Throws a Failure when they name it twice.
/// @return empty when they do not
std::unique_ptr<SpooledInput> spoolInput(ScanOptions& options, Console& console);

}  // namespace ScanHost
