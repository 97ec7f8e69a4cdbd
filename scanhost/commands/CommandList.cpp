// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "commands/CommandList.h"

namespace ScanHost {

std::vector<std::unique_ptr<Command>> makeCommands() {
    std::vector<std::unique_ptr<Command>> commands;
#define SCANHOST_MAKE(Name) commands.push_back(make##Name##Command());
    SCANHOST_COMMANDS(SCANHOST_MAKE)
#undef SCANHOST_MAKE
    return commands;
}

}  // namespace ScanHost
