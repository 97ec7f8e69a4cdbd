// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "commands/Options.h"

namespace ScanHost {

/// A command as the command line knows it.
struct CommandDeclaration {
    std::string name;
    std::string summary;  ///< one line
    Options options;
};

/// All that can be said to the program. Help, manual page and completion are made of it.
struct ProgramDeclaration {
    std::string name;
    std::string summary;      ///< a few words, without a stop
    std::string description;  ///< a sentence
    std::string footer;
    Options options;  ///< those without a command
    std::vector<CommandDeclaration> commands;
};

/// The option that program and commands have without declaring it.
const Option& helpOption();

/// What a command line asked for.
struct ParsedLine {
    std::optional<std::string> help;     ///< set: the text to print instead of doing anything
    std::optional<std::size_t> command;  ///< index among the declared commands
};

/// Parses a command line and stores the values of its options where they were declared to go.
/// Throws a UsageError when the declarations do not allow it.
/// @param arguments  without the program's name
ParsedLine parseCommandLine(const ProgramDeclaration& program, std::vector<std::string> arguments);

}  // namespace ScanHost
