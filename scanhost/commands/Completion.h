// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "commands/CommandLine.h"

namespace ScanHost {

/// A script for bash that completes the program's commands, their options, and the values that
/// options name: one of a few words, files, folders. It defines the function _NAME, for a program
/// NAME, and registers it with `complete`.
std::string bashCompletion(const ProgramDeclaration& program);

}  // namespace ScanHost
