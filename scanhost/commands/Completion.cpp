// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "commands/Completion.h"

#include <fmt/format.h>

namespace ScanHost {

namespace {

// What the script does with the words typed so far. Bash cuts "--option=value" into three words.
constexpr const char* kBeginning = R"(# Completion of {0} for bash; made by "{0} --completion".
_{0}() {{
    local current=${{COMP_WORDS[COMP_CWORD]}} previous=${{COMP_WORDS[COMP_CWORD-1]}}
    local command= words= files= i
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${{COMP_WORDS[i]}} in
            {1}) command=${{COMP_WORDS[i]}}; break ;;
        esac
    done
    if [[ $current == = ]]; then
        current=
    elif [[ $previous == = ]]; then
        previous=${{COMP_WORDS[COMP_CWORD-2]}}
    fi
    case "$command $previous" in
)";

constexpr const char* kEnd = R"(    esac
    if [[ -z $files ]]; then
        COMPREPLY=($(compgen -W "$words" -- "$current"))
    elif [[ $current != -* ]]; then
        compopt -o filenames 2>/dev/null
        local IFS=$'\n'
        COMPREPLY=($(compgen -A "$files" -- "$current"))
    else
        COMPREPLY=($(compgen -W "$words" -- "$current"))
    fi
}}
complete -F _{0} {0}
)";

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : between) + word;
    }
    return text;
}

/// The kind of names in the words of bash's compgen -A.
std::string action(Option::Names names) {
    switch (names) {
        case Option::Names::File:
            return "file";
        case Option::Names::Folder:
            return "directory";
        case Option::Names::Nothing:
            break;
    }
    return {};
}

/// Names of the options, without the positionals.
std::vector<std::string> optionNames(const Options& options) {
    std::vector<std::string> names = helpOption().names;
    for (const Option& option : options.all()) {
        if (!option.isPositional()) {
            names.insert(names.end(), option.names.begin(), option.names.end());
        }
    }
    return names;
}

/// What follows an option that has a value, or several.
std::string branches(const std::string& command, const Options& options) {
    std::string text;
    for (const Option& option : options.all()) {
        if (option.isPositional() || option.flag != nullptr) {
            continue;
        }
        std::vector<std::string> patterns;
        for (const std::string& name : option.names) {
            patterns.push_back(fmt::format("\"{} {}\"", command, name));
        }
        text += fmt::format("        {}) words=\"{}\" files={} ;;\n", joined(patterns, " | "),
                            joined(option.words, " "), action(option.valueNames));
    }
    return text;
}

/// What comes at any other place of a command.
std::string otherwise(const CommandDeclaration& command) {
    std::string files;
    for (const Option& option : command.options.all()) {
        if (option.isPositional() && files.empty()) {
            files = action(option.valueNames);
        }
    }
    return fmt::format("        \"{} \"*) words=\"{}\" files={} ;;\n", command.name,
                       joined(optionNames(command.options), " "), files);
}

}  // namespace

std::string bashCompletion(const ProgramDeclaration& program) {
    std::vector<std::string> commands;
    for (const CommandDeclaration& command : program.commands) {
        commands.push_back(command.name);
    }
    // The options of the program itself are flags: nothing follows them.
    std::string script = fmt::format(kBeginning, program.name, joined(commands, " | "));
    for (const CommandDeclaration& command : program.commands) {
        script += branches(command.name, command.options) + otherwise(command);
    }
    script += fmt::format("        *) words=\"{} {}\" ;;\n", joined(commands, " "),
                          joined(optionNames(program.options), " "));
    return script + fmt::format(kEnd, program.name);
}

}  // namespace ScanHost
