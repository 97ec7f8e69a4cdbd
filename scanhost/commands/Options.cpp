// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "commands/Options.h"

#include <algorithm>
#include <limits>

#include "report/NumberText.h"

namespace ScanHost {

namespace {

constexpr const char* kFiniteNumber = "a finite number";

std::vector<std::string> partsOf(const std::string& names) {
    const std::size_t comma = names.find(',');
    return comma == std::string::npos
               ? std::vector{names}
               : std::vector{names.substr(0, comma), names.substr(comma + 1)};
}

/// Stores a value that was read. @return what Option::take gives
template <typename Value, typename Target>
std::string store(const std::optional<Value>& value, Target& target, const char* expected) {
    if (!value) {
        return expected;
    }
    target = *value;
    return {};
}

}  // namespace

Option& Option::required() {
    isRequired = true;
    return *this;
}

Option& Option::needs(const Option& other) {
    needed.push_back(other.name());
    return *this;
}

Option& Option::excludes(const Option& other) {
    excluded.push_back(other.name());
    return *this;
}

Option& Options::add(const std::string& names, const std::string& value, const std::string& help) {
    Option& option = options_.emplace_back();
    option.names = partsOf(names);
    option.value = value;
    option.help = help;
    return option;
}

Option& Options::flag(const std::string& names, bool& target, const std::string& help) {
    Option& option = add(names, {}, help);
    option.flag = &target;
    return option;
}

Option& Options::number(const std::string& names, std::optional<double>& target,
                        const std::string& value, const std::string& help) {
    Option& option = add(names, value, help);
    option.take = [&target](const std::string& text) {
        return store(parseNumber(text), target, kFiniteNumber);
    };
    return option;
}

Option& Options::numbers(const std::string& names, std::vector<double>& target,
                         const std::string& value, const std::string& help) {
    Option& option = add(names, value, help);
    option.many = true;
    option.commas = true;
    option.take = [&target](const std::string& text) {
        double number = 0.0;
        std::string expected = store(parseNumber(text), number, kFiniteNumber);
        if (expected.empty()) {
            target.push_back(number);
        }
        return expected;
    };
    return option;
}

Option& Options::count(const std::string& names, std::optional<std::uint64_t>& target,
                       const std::string& value, const std::string& help) {
    Option& option = add(names, value, help);
    option.take = [&target](const std::string& text) {
        return store(parseCount(text), target, "a whole number, 0 or more");
    };
    return option;
}

Option& Options::ordinal(const std::string& names, std::optional<std::uint32_t>& target,
                         const std::string& value, const std::string& expected,
                         const std::string& help) {
    Option& option = add(names, value, help);
    option.take = [&target, expected](const std::string& text) {
        const std::optional<std::uint64_t> number = parseCount(text);
        if (!number || *number == 0 || *number > std::numeric_limits<std::uint32_t>::max()) {
            return expected;
        }
        target = static_cast<std::uint32_t>(*number);
        return std::string();
    };
    return option;
}

Option& Options::point(const std::string& names, Tq_1_1::Vec3d<double>& target,
                       const std::string& help) {
    Option& option = add(names, "X,Y,Z", help);
    option.take = [&target](const std::string& text) {
        return store(parsePoint(text), target, "three finite numbers apart by commas");
    };
    return option;
}

Option& Options::takePath(const std::string& names, const std::string& value,
                          const std::string& help, std::function<void(const std::string&)> set) {
    Option& option = add(names, value, help);
    option.valueNames = Option::Names::File;
    option.take = [set = std::move(set)](const std::string& text) {
        set(text);
        return std::string();
    };
    return option;
}

Option& Options::takeWord(const std::string& names, std::vector<std::string> words,
                          const std::string& help, std::function<void(std::size_t)> set) {
    std::string list;
    for (const std::string& word : words) {
        list += list.empty() ? word : '|' + word;
    }
    Option& option = add(names, list, help);
    option.words = std::move(words);
    option.take = [known = option.words, set = std::move(set), list](const std::string& text) {
        const auto word = std::find(known.begin(), known.end(), text);
        if (word == known.end()) {
            return list;
        }
        set(static_cast<std::size_t>(word - known.begin()));
        return std::string();
    };
    return option;
}

Option& Options::takeText(const std::string& name, Option::Names valueNames,
                          const std::string& help, bool many,
                          std::function<void(const std::string&)> set) {
    Option& option = takePath(name, {}, help, std::move(set));
    option.valueNames = valueNames;
    option.many = many;
    return option;
}

Option& Options::positionals(const std::string& name, std::vector<std::string>& target,
                             Option::Names valueNames, const std::string& help) {
    return takeText(name, valueNames, help, true,
                    [&target](const std::string& text) { target.push_back(text); });
}

}  // namespace ScanHost
