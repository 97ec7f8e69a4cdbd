// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "commands/Command.h"

namespace ScanHost {

std::vector<std::unique_ptr<Command>> makeCommands() {
    std::vector<std::unique_ptr<Command>> commands;
    for (const auto make : {makeInfoCommand, makePointCommand, makeTimesCommand, makeWhereCommand,
                            makePathCommand, makeNearCommand, makeExportCommand, makeSortCommand,
                            makeCommandsCommand, makeSampleCommand}) {
        commands.push_back(make());
    }
    return commands;
}

}  // namespace ScanHost
