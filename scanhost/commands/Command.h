// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "commands/Arguments.h"
#include "report/Console.h"

namespace ScanHost {

/// One command of the program.
class Command {
  public:
    Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    virtual ~Command() = default;

    virtual std::string name() const = 0;
    /// One line for the list of commands.
    virtual std::string summary() const = 0;
    /// Enters the command's options; their values go into this object.
    virtual void declare(CLI::App& app) = 0;
    /// Does the work. Throws a Failure when it cannot.
    virtual void run(const CommonOptions& common, Console& console) = 0;
};

std::unique_ptr<Command> makeInfoCommand();
std::unique_ptr<Command> makePointCommand();
std::unique_ptr<Command> makeTimesCommand();
std::unique_ptr<Command> makeWhereCommand();
std::unique_ptr<Command> makePathCommand();
std::unique_ptr<Command> makeNearCommand();
std::unique_ptr<Command> makeExportCommand();
std::unique_ptr<Command> makeSortCommand();
std::unique_ptr<Command> makeCommandsCommand();
std::unique_ptr<Command> makeSampleCommand();

/// All of them, in the order in which help lists them.
std::vector<std::unique_ptr<Command>> makeCommands();

}  // namespace ScanHost
