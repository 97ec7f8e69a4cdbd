// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Application.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <new>

#include "RegisterFormats.h"

#include "commands/Arguments.h"
#include "commands/Command.h"
#include "report/Console.h"
#include "session/Interrupt.h"
#include "session/ModuleSession.h"

namespace ScanHost {

namespace {

constexpr const char* kDescription =
    "Holds and processes the scans of a hand-held SLAM scanner through the module VardexScandata.";
constexpr const char* kFooter =
    "Exit codes: 0 done, 1 failed, 2 wrong usage, 130 cancelled with Ctrl-C.";
constexpr std::size_t kHelpColumn = 34;

/// The command line: what was asked for.
struct Request {
    CommonOptions common;
    bool version = false;
    Command* command = nullptr;
};

void declare(CLI::App& app, Request& request, std::vector<std::unique_ptr<Command>>& commands) {
    app.footer(kFooter);
    app.get_formatter()->column_width(kHelpColumn);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.set_help_flag("-h,--help", "Print this help and end");
    app.add_flag("--version", request.version, "Print the module's name and version and end");
    addModuleOption(app, request.common);
    app.require_subcommand(0, 1);
    for (const auto& command : commands) {
        CLI::App* sub = app.add_subcommand(command->name(), command->summary());
        sub->group("Commands");
        command->declare(*sub);
        addCommonOptions(*sub, request.common);
        sub->callback([&request, chosen = command.get()] { request.command = chosen; });
    }
}

ExitCode refuseUsage(Console& console, const std::string& reason) {
    std::string line = reason;
    std::replace(line.begin(), line.end(), '\n', ' ');
    console.error(line);
    console.error("see scanhost --help, or scanhost COMMAND --help");
    return ExitCode::WrongUsage;
}

void run(const Request& request, Console& console) {
    console.setJson(request.common.json);
    console.setProgress(request.common.progress);
    if (request.version) {
        const ModuleSession session(request.common.module);
        console.print(session.moduleName() + ' ' + session.moduleVersion() + '\n');
    } else {
        request.command->run(request.common, console);
    }
}

}  // namespace

ExitCode runApplication(std::vector<std::string> arguments, std::ostream& out, std::ostream& err) {
    Ovr::Formats::registerFormats();
    Console console(out, err);
    std::vector<std::unique_ptr<Command>> commands = makeCommands();
    Request request;
    CLI::App app(kDescription, "scanhost");
    declare(app, request, commands);
    try {
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
        if (!request.version && request.command == nullptr) {
            return refuseUsage(console, "found no command, expected one");
        }
        run(request, console);
        return ExitCode::Done;
    } catch (const CLI::CallForHelp&) {
        out << app.help();
        return out.flush() ? ExitCode::Done : ExitCode::Failed;
    } catch (const CLI::ParseError& error) {
        return refuseUsage(console, error.what());
    } catch (const Failure& failure) {
        console.error(failure.what());
        return failure.code();
    } catch (const std::bad_alloc&) {
        console.error("there is not enough memory");
    } catch (const std::exception& error) {
        console.error(error.what());
    }
    return Interrupt::wasAsked() ? ExitCode::Cancelled : ExitCode::Failed;
}

}  // namespace ScanHost
