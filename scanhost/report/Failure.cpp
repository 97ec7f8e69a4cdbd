// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "report/Failure.h"

#include <fmt/format.h>

namespace ScanHost {

Failure unexpected(const std::string& place, const std::string& found, const std::string& expected,
                   ExitCode code) {
    return Failure(fmt::format("{}: found {}, expected {}", place, found, expected), code);
}

}  // namespace ScanHost
