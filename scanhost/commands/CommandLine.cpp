// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "commands/CommandLine.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "report/Failure.h"
#include "report/NumberText.h"

namespace ScanHost {

namespace {

constexpr std::size_t kHelpColumn = 34;
constexpr std::size_t kLongestMessage = 500;

std::string joinedNames(const Option& option) {
    std::string joined;
    for (const std::string& name : option.names) {
        joined += joined.empty() ? name : ',' + name;
    }
    return joined;
}

void takeValue(const Option& option, const std::string& text) {
    const std::string expected = option.take(text);
    if (!expected.empty()) {
        throw CLI::ValidationError(
            option.name(), fmt::format("found '{}', expected {}", shortened(text), expected));
    }
}

CLI::Option* addOption(CLI::App& app, const Option& option) {
    const std::string names = joinedNames(option);
    if (option.flag != nullptr) {
        return app.add_flag(names, *option.flag, option.help);
    }
    if (!option.many) {
        const auto take = [&option](const std::string& text) { takeValue(option, text); };
        return app.add_option_function<std::string>(names, take, option.help);
    }
    const auto takeAll = [&option](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            takeValue(option, text);
        }
    };
    return app.add_option_function<std::vector<std::string>>(names, takeAll, option.help);
}

void declareOptions(CLI::App& app, const Options& options) {
    for (const Option& option : options.all()) {
        CLI::Option* added = addOption(app, option);
        if (option.flag == nullptr) {
            added->type_name(option.value);
        }
        if (option.commas) {
            added->delimiter(',');
        }
        added->required(option.isRequired);
    }
    for (const Option& option : options.all()) {
        for (const std::string& other : option.needed) {
            app.get_option(option.name())->needs(app.get_option(other));
        }
        for (const std::string& other : option.excluded) {
            app.get_option(option.name())->excludes(app.get_option(other));
        }
    }
}

/// How many letters must change to make one word of another.
/// Source: Wagner and Fischer, "The String-to-String Correction Problem", Journal of the ACM 1974.
std::size_t distanceBetween(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = std::exchange(row[j + 1], std::min({row[j], row[j + 1], diagonal}) + 1);
            row[j + 1] = std::min(row[j + 1], replaced);
        }
    }
    return row.back();
}

/// Throws a UsageError when the first word that is no option is no command.
void requireCommand(const ProgramDeclaration& program, const std::vector<std::string>& arguments) {
    constexpr std::size_t kLikely = 2;  // changed letters
    const auto word = std::find_if(arguments.begin(), arguments.end(),
                                   [](const std::string& text) { return !text.starts_with('-'); });
    if (word == arguments.end()) {
        return;
    }
    const CommandDeclaration* nearest = nullptr;
    std::size_t distance = kLikely + 1;
    for (const CommandDeclaration& command : program.commands) {
        if (const std::size_t apart = distanceBetween(command.name, *word); apart < distance) {
            nearest = &command;
            distance = apart;
        }
    }
    if (distance > 0) {
        throw UsageError(fmt::format(
            "there is no command '{}'{}", shortened(*word),
            nearest != nullptr ? fmt::format("; did you mean '{}'?", nearest->name) : ""));
    }
}

void declareProgram(CLI::App& app, const ProgramDeclaration& program, ParsedLine& parsed) {
    app.footer(program.footer);
    app.get_formatter()->column_width(kHelpColumn);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.set_help_flag(joinedNames(helpOption()), helpOption().help);
    declareOptions(app, program.options);
    app.require_subcommand(0, 1);
    for (std::size_t i = 0; i < program.commands.size(); ++i) {
        const CommandDeclaration& command = program.commands[i];
        CLI::App* sub = app.add_subcommand(command.name, command.summary);
        sub->group("Commands");
        declareOptions(*sub, command.options);
        sub->callback([&parsed, i] { parsed.command = i; });
    }
}

}  // namespace

const Option& helpOption() {
    static const Option kHelp = [] {
        Option option;
        option.names = {"-h", "--help"};
        option.help = "Print this help and end";
        return option;
    }();
    return kHelp;
}

ParsedLine parseCommandLine(const ProgramDeclaration& program, std::vector<std::string> arguments) {
    ParsedLine parsed;
    CLI::App app(program.description, program.name);
    declareProgram(app, program, parsed);
    requireCommand(program, arguments);
    try {
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        parsed.help = app.help();
    } catch (const CLI::ParseError& error) {
        std::string line = error.what();
        std::replace(line.begin(), line.end(), '\n', ' ');
        throw UsageError(shortened(line, kLongestMessage));
    }
    return parsed;
}

}  // namespace ScanHost
