// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "commands/ManualPage.h"

#include <fmt/format.h>

namespace ScanHost {

namespace {

/// Text as troff shows it: no requests, no escapes, and hyphens that can be copied.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        const bool starts = result.empty() && (c == '.' || c == '\'');
        result += starts ? "\\&" : "";
        result += c == '\\' ? "\\e" : c == '-' ? "\\-" : std::string(1, c);
    }
    return result;
}

std::string bold(const std::string& text) {
    return fmt::format("\\fB{}\\fR", escaped(text));
}

std::string italic(const std::string& text) {
    return fmt::format("\\fI{}\\fR", escaped(text));
}

/// "-o, --output FILE", marked up.
std::string heading(const Option& option) {
    std::string line;
    for (const std::string& name : option.names) {
        line += line.empty() ? "" : ", ";
        line += option.isPositional() ? italic(name) : bold(name);
    }
    if (option.words.empty()) {
        line += option.value.empty() ? "" : ' ' + italic(option.value);
    } else {
        line += ' ' + bold(option.value);
    }
    line += option.many ? " ..." : "";
    return line;
}

std::string list(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "" : ", ") + bold(name);
    }
    return text;
}

std::string describe(const Option& option) {
    std::string text = escaped(option.help) + '.';
    text += option.isRequired ? " Required." : "";
    if (!option.needed.empty()) {
        text += fmt::format(" Needs {}.", list(option.needed));
    }
    if (!option.excluded.empty()) {
        text += fmt::format(" Not together with {}.", list(option.excluded));
    }
    return text;
}

std::string entry(const Option& option) {
    return fmt::format(".TP\n{}\n{}\n", heading(option), describe(option));
}

std::string entries(const Options& options) {
    std::string text;
    for (const bool positional : {true, false}) {
        for (const Option& option : options.all()) {
            text += option.isPositional() == positional ? entry(option) : "";
        }
    }
    return text;
}

std::string synopsis(const ProgramDeclaration& program, const CommandDeclaration& command) {
    std::string line = fmt::format("{} {}", bold(program.name), bold(command.name));
    for (const Option& option : command.options.all()) {
        if (option.isPositional()) {
            const std::string name = italic(option.name()) + (option.many ? " ..." : "");
            line += option.isRequired ? fmt::format(" {}", name) : fmt::format(" [{}]", name);
        }
    }
    return fmt::format("{} [{} ...]", line, italic("OPTION"));
}

}  // namespace

std::string manualPage(const ProgramDeclaration& program) {
    std::string page = fmt::format(
        ".TH {} 1 \"\" \"VardexScandata\" \"User Commands\"\n"
        ".SH NAME\n{} \\- {}\n"
        ".SH SYNOPSIS\n{} [{} ...]\n",
        program.name, program.name, escaped(program.summary), bold(program.name), italic("OPTION"));
    for (const CommandDeclaration& command : program.commands) {
        page += fmt::format(".br\n{}\n", synopsis(program, command));
    }
    page +=
        fmt::format(".SH DESCRIPTION\n{}\n.SH OPTIONS\n{}{}.SH COMMANDS\n",
                    escaped(program.description), entry(helpOption()), entries(program.options));
    for (const CommandDeclaration& command : program.commands) {
        page += fmt::format(".SS {}\n{}.\n{}", synopsis(program, command), escaped(command.summary),
                            entries(command.options));
    }
    return page + fmt::format(".SH EXIT STATUS\n{}\n", escaped(program.footer));
}

}  // namespace ScanHost
