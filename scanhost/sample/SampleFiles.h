// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "session/OutputRules.h"

namespace ScanHost::Sample {

/// A file of the sample.
struct SampleFile {
    std::filesystem::path file;
    std::string holds;
};

/// Writes the sample project into a folder, which is made when it is not there: two stances as PTX,
/// a walk as LAS with its trajectory, and a project file that lists them. The bytes are the same on
/// every machine. Each file appears whole or not at all. Throws a Failure when one cannot be
/// written.
std::vector<SampleFile> writeSample(const std::filesystem::path& folder, const OutputRules& rules);

}  // namespace ScanHost::Sample
