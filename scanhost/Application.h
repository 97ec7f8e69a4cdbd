// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "report/Failure.h"

namespace ScanHost {

/// Runs the program.
/// @param arguments  without the program's name
/// @param out        gets reports and help
/// @param err        gets errors, warnings and progress
/// @return how the program ends; failures were said to @p err
ExitCode runApplication(const std::vector<std::string>& arguments, std::ostream& out,
                        std::ostream& err);

}  // namespace ScanHost
