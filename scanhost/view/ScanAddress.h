// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "session/ScanOptions.h"

namespace ScanHost {

/// A scan and what the user said of it, as arguments of a command of the program that a shell
/// takes: "'my project.json' --scan 3 --time-offset=-18".
/// @param file     as the user named it
/// @param number   of the scan in the file, from 1 on; empty when there is no other
/// @param options  its files and its number are not read
std::string scanAddress(const std::string& file, std::optional<std::uint32_t> number,
                        const ScanOptions& options);

}  // namespace ScanHost
