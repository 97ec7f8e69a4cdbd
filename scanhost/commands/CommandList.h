// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <vector>

#include "commands/Command.h"

// The list of commands, in the order in which help shows them. A new command is one line here and
// one file that defines its function: `Name` stands for makeNameCommand().
#define SCANHOST_COMMANDS(COMMAND) \
    COMMAND(Info)                  \
    COMMAND(Point)                 \
    COMMAND(Times)                 \
    COMMAND(Where)                 \
    COMMAND(Path)                  \
    COMMAND(Near)                  \
    COMMAND(Export)                \
    COMMAND(Sort)                  \
    COMMAND(Picture)               \
    COMMAND(View)                  \
    COMMAND(Commands)              \
    COMMAND(Sample)

namespace ScanHost {

#define SCANHOST_DECLARE(Name) std::unique_ptr<Command> make##Name##Command();
SCANHOST_COMMANDS(SCANHOST_DECLARE)
#undef SCANHOST_DECLARE

/// All commands of the list.
std::vector<std::unique_ptr<Command>> makeCommands();

}  // namespace ScanHost
