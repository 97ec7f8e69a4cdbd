// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Application.h"

#include <exception>
#include <memory>
#include <new>

#include <fmt/format.h>

#include "RegisterFormats.h"

#include "commands/CommandLine.h"
#include "commands/CommandList.h"
#include "commands/Completion.h"
#include "commands/ManualPage.h"
#include "report/Console.h"
#include "session/Interrupt.h"
#include "session/ModuleSession.h"

namespace ScanHost {

namespace {

using Commands = std::vector<std::unique_ptr<Command>>;

constexpr const char* kSummary = "hold and process the scans of a hand-held SLAM scanner";
constexpr const char* kDescription =
    "Holds and processes the scans of a hand-held SLAM scanner through the module VardexScandata.";
constexpr const char* kFooter =
    "Exit codes: 0 done, 1 failed, 2 wrong usage, 3 done with warnings (--strict), 130 cancelled "
    "with Ctrl-C, 143 ended by SIGTERM.";

/// What was asked for besides a command.
struct Request {
    CommonOptions common;
    bool version = false;
    bool manual = false;
    bool completion = false;
};

ProgramDeclaration declare(Request& request, const Commands& commands) {
    ProgramDeclaration program{"scanhost", kSummary, kDescription, kFooter, {}, {}};
    program.options.flag("--version", request.version,
                         "Print the module's name and version and end");
    program.options.flag("--manual", request.manual, "Print the manual page, for man, and end");
    program.options.flag("--completion", request.completion,
                         "Print a script that completes command lines in bash, and end");
    for (const auto& command : commands) {
        CommandDeclaration declaration{command->name(), command->summary(), {}};
        command->declare(declaration.options);
        declareCommon(declaration.options, request.common);
        program.commands.push_back(std::move(declaration));
    }
    return program;
}

/// @return Done, or Warned
ExitCode run(const std::vector<std::string>& arguments, Console& console) {
    const Commands commands = makeCommands();
    Request request;
    const ProgramDeclaration program = declare(request, commands);
    const ParsedLine line = parseCommandLine(program, arguments);
    console.setJson(request.common.json);
    console.setProgress(request.common.quiet ? ProgressMode::None : request.common.progress);
    console.setQuiet(request.common.quiet);
    if (line.help) {
        console.print(*line.help);
    } else if (request.version) {
        const ModuleSession session;
        console.print(fmt::format("{} {}\n", session.moduleName(), session.moduleVersion()));
    } else if (request.manual) {
        console.print(manualPage(program));
    } else if (request.completion) {
        console.print(bashCompletion(program));
    } else if (line.command) {
        commands[*line.command]->run(request.common, console);
    } else {
        throw UsageError("found no command, expected one");
    }
    return request.common.strict && console.hasWarned() ? ExitCode::Warned : ExitCode::Done;
}

}  // namespace

ExitCode runApplication(const std::vector<std::string>& arguments, std::ostream& out,
                        std::ostream& err) {
    Ovr::Formats::registerFormats();
    Console console(out, err);
    try {
        return run(arguments, console);
    } catch (const UsageError& error) {
        console.error(error.what());
        console.error("see scanhost --help, or scanhost COMMAND --help");
        return error.code();
    } catch (const Failure& failure) {
        const bool cancelled = failure.code() == ExitCode::Cancelled;
        console.error(cancelled ? fmt::format("{} ({})", failure.what(), Interrupt::cause())
                                : failure.what());
        return cancelled ? Interrupt::exitCode() : failure.code();
    } catch (const std::bad_alloc&) {
        console.error("there is not enough memory");
    } catch (const std::exception& error) {
        console.error(error.what());
    }
    return Interrupt::wasAsked() ? Interrupt::exitCode() : ExitCode::Failed;
}

}  // namespace ScanHost
