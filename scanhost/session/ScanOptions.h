// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Ovr/ScanSource.h"

namespace ScanHost {

/// One scan, or the scans of several files, and what the user says of them. What the user says goes
/// before what a project says.
struct ScanOptions {
    std::vector<std::string> files;
    std::optional<std::uint32_t> number;  ///< among the scans of a file, from 1 on
    std::optional<std::filesystem::path> trajectory;
    std::optional<Ovr::TimeUnit> timeUnit;
    std::optional<double> timeOffset;  ///< [s]
};

}  // namespace ScanHost
