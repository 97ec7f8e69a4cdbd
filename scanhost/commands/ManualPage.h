// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "commands/CommandLine.h"

namespace ScanHost {

/// The program's manual page of section 1, in troff with the man macros: every command with its
/// options, and those of the program itself.
std::string manualPage(const ProgramDeclaration& program);

}  // namespace ScanHost
