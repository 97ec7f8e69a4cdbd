// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include "Ovr/Errors.h"
#include "Ovr/ScanFormat.h"
#include "kit/TextLines.h"

namespace Ovr::Formats {

/// Whether lines look like the head of a scan: two counts, then three numbers.
bool looksLikePtx(std::string_view beginning);

/// Finds the scans of a file. The lines of their points are counted, not read.
/// @param lenient  take a file that ends within a scan, and what follows the last scan
/// @param scans    they are added on success
[[nodiscard]] ErrorPtr listPtxScans(const std::filesystem::path& path, bool lenient,
                                    std::vector<ScanListing>& scans);

/// The error of lines that ended within the points of a scan.
/// @param found  points
[[nodiscard]] ErrorPtr cutPtxScan(TextLines& lines, std::uint64_t found, std::uint64_t expected);

}  // namespace Ovr::Formats
