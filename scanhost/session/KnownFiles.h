// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace ScanHost {

// The names of files that the program reads, for help and messages; from the registered formats.

/// "Points file (.las, .ptx)", and so on for every registered format.
std::string pointsFileText(const std::string& noun);
/// "scanner project (.json)".
std::string projectFileText(const std::string& noun);
/// "NAME.txt or NAME.tum": where the trajectory of a scan NAME is looked for.
std::string trajectoryNames();

}  // namespace ScanHost
