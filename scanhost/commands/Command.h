// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "commands/Options.h"
#include "commands/SharedOptions.h"
#include "report/Console.h"

namespace ScanHost {

/// One command of the program. A command that asks one scan is a ScanCommand.
class Command {
  public:
    Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    virtual ~Command() = default;

    virtual std::string name() const = 0;
    /// One line for the list of commands.
    virtual std::string summary() const = 0;
    /// Declares the command's options; their values go into this object.
    virtual void declare(Options& options) = 0;
    /// Does the work. Throws a Failure when it cannot.
    virtual void run(const CommonOptions& common, Console& console) = 0;
};

}  // namespace ScanHost
