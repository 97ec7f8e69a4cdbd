// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "report/Console.h"
#include "view/PageScan.h"

namespace ScanHost {

/// What is asked of a page.
struct PageRequest {
    std::string title;
    std::string program;                      ///< that made it, and its version
    std::optional<std::uint32_t> mostPoints;  ///< empty: what fits into a page to be mailed
};

/// What a page holds.
struct PageContent {
    std::uint64_t points = 0;
    std::uint64_t returns = 0;  ///< of the scans
    double spacing = 0.0;  ///< edge of the cubes that keep one point each [m]; 0: all are there
};

/// Writes a page that shows scans in a browser: one HTML file that needs nothing else.
/// @param out  a failed write shows in its state
/// @param scans  have coordinates in the same units of length
/// @throw Failure  no scan has a return, or Ctrl-C
PageContent writeScanPage(std::ostream& out, const std::vector<PageScan>& scans,
                          const PageRequest& request, Console& console);

}  // namespace ScanHost
