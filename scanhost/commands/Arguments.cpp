// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "commands/Arguments.h"

#include <limits>
#include <map>

#include "report/NumberText.h"

namespace ScanHost {

namespace {

const std::map<std::string, ProgressMode> kProgressModes{{"plain", ProgressMode::Plain},
                                                         {"none", ProgressMode::None}};
const std::map<std::string, Ovr::TimeUnit> kTimeUnits{{"s", Ovr::TimeUnit::Seconds},
                                                      {"ms", Ovr::TimeUnit::Milliseconds},
                                                      {"us", Ovr::TimeUnit::Microseconds},
                                                      {"ns", Ovr::TimeUnit::Nanoseconds}};

[[noreturn]] void refuse(const std::string& option, const std::string& found,
                         const std::string& expected) {
    throw CLI::ValidationError(option, "found '" + printable(found) + "', expected " + expected);
}

double numberOf(const std::string& option, const std::string& text) {
    const std::optional<double> value = parseNumber(text);
    if (!value) {
        refuse(option, text, "a finite number");
    }
    return *value;
}

/// An option whose value is one of a few words.
template <typename Value, typename Words>
CLI::Option* addChoice(CLI::App& app, const std::string& name, Value& value, const Words& words,
                       const std::string& type, const std::string& help) {
    const auto take = [&value, &words, name, type](const std::string& text) {
        const auto word = words.find(text);
        if (word == words.end()) {
            refuse(name, text, type);
        }
        value = word->second;
    };
    return app.add_option_function<std::string>(name, take, help)->type_name(type);
}

}  // namespace

void addCommonOptions(CLI::App& app, CommonOptions& options) {
    app.add_flag("--json", options.json, "Print one JSON document instead of text");
    addChoice(app, "--progress", options.progress, kProgressModes, "plain|none",
              "Progress as plain lines on standard error, or none; without this option it is "
              "shown on a terminal only");
    addModuleOption(app, options);
}

void addModuleOption(CLI::App& app, CommonOptions& options) {
    app.add_option_function<std::string>(
           "--module", [&options](const std::string& path) { options.module = path; },
           "The module to load instead of the one beside this program")
        ->type_name("PATH");
}

void addScan(CLI::App& app, ScanOptions& options) {
    app.add_option_function<std::string>(
           "SCAN", [&options](const std::string& file) { options.files = {file}; },
           "Points file (.las, .ptx) or scanner project (.json)")
        ->type_name("")
        ->required();
    addScanSettings(app, options);
}

void addScanSettings(CLI::App& app, ScanOptions& options) {
    const auto takeNumber = [&options](const std::string& text) {
        const std::optional<std::uint64_t> number = parseCount(text);
        if (!number || *number == 0 || *number > std::numeric_limits<std::uint32_t>::max()) {
            refuse("--scan", text, "a scan's number, from 1 on");
        }
        options.number = static_cast<std::uint32_t>(*number);
    };
    app.add_option_function<std::string>(
           "--scan", takeNumber, "Which scan of a file or project that holds several, from 1 on")
        ->type_name("N");
    app.add_option_function<std::string>(
           "--trajectory", [&options](const std::string& path) { options.trajectory = path; },
           "Trajectory of a mobile scan instead of the NAME.txt or NAME.tum beside it")
        ->type_name("FILE");
    app.add_option_function<std::string>(
           "--time-offset",
           [&options](const std::string& text) {
               options.timeOffset = numberOf("--time-offset", text);
           },
           "Added to the points' times to bring them onto the trajectory's clock")
        ->type_name("SECONDS");
    addChoice(app, "--time-unit", options.timeUnit, kTimeUnits, "s|ms|us|ns",
              "Unit of the times in the points file (s)");
}

CLI::Option* addNumber(CLI::App& app, const std::string& name, std::optional<double>& value,
                       const std::string& unit, const std::string& help) {
    const auto take = [&value, name](const std::string& text) { value = numberOf(name, text); };
    return app.add_option_function<std::string>(name, take, help)->type_name(unit);
}

CLI::Option* addNumbers(CLI::App& app, const std::string& name, std::vector<double>& values,
                        const std::string& unit, const std::string& help) {
    const auto take = [&values, name](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            values.push_back(numberOf(name, text));
        }
    };
    return app.add_option_function<std::vector<std::string>>(name, take, help)
        ->type_name(unit)
        ->delimiter(',');
}

CLI::Option* addCount(CLI::App& app, const std::string& name, std::optional<std::uint64_t>& value,
                      const std::string& unit, const std::string& help) {
    const auto take = [&value, name](const std::string& text) {
        value = parseCount(text);
        if (!value) {
            refuse(name, text, "a whole number, 0 or more");
        }
    };
    return app.add_option_function<std::string>(name, take, help)->type_name(unit);
}

CLI::Option* addPoint(CLI::App& app, const std::string& name, Tq_1_1::Vec3d<double>& value,
                      const std::string& help) {
    const auto take = [&value, name](const std::string& text) {
        const std::optional<Tq_1_1::Vec3d<double>> point = parsePoint(text);
        if (!point) {
            refuse(name, text, "three finite numbers apart by commas");
        }
        value = *point;
    };
    return app.add_option_function<std::string>(name, take, help)->type_name("X,Y,Z");
}

}  // namespace ScanHost
