// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "kit/AtomicFile.h"

#include "session/ImportedScan.h"
#include "session/ScanOptions.h"

namespace ScanHost {

/// A file that a command writes.
struct OutputFile {
    std::filesystem::path file;
    /// How its name may end, with the dot, lower case; a name without any ending is fine.
    std::vector<std::string> endings;
};

/// What a command may write over: nothing that it reads, and another file only when the user says
/// so.
class OutputRules {
  public:
    /// Set by the option --force.
    bool force = false;

    /// Notes files that the command reads: those that the user names, and those of a scan, with the
    /// trajectory that is found next to it.
    void protect(const ScanOptions& options);
    void protect(const std::filesystem::path& input) { inputs_.push_back(input); }
    void protect(const ImportedScan& scan);

    /// Throws a Failure when a file may not be written: it is one that the command reads, however
    /// the path is written; or it is there, without --force; or its name ends in another way than
    /// what is written.
    void check(const OutputFile& output) const;
    void check(const std::vector<OutputFile>& outputs) const;

    Ovr::Formats::Existing existing() const {
        return force ? Ovr::Formats::Existing::Replace : Ovr::Formats::Existing::Keep;
    }

  private:
    std::vector<std::filesystem::path> inputs_;
};

}  // namespace ScanHost
