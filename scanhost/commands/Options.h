// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Tq/Vec3d.h"

namespace ScanHost {

/// One option or positional argument, as a command declares it.
struct Option {
    /// What the value names; completion offers it.
    enum class Names { Nothing, File, Folder };

    std::vector<std::string> names;  ///< "-o", "--output"; a positional has one without dashes
    std::string help;
    std::string value;  ///< what help calls the value, for example "METRES"; empty for a positional
    Names valueNames = Names::Nothing;
    std::vector<std::string> words;  ///< the values that there are; empty: any
    bool many = false;               ///< takes several values
    bool commas = false;             ///< commas part several values in one word
    bool* flag = nullptr;            ///< a flag is set here and has no value
    /// Takes a value. @return what was expected; empty when the value was fine
    std::function<std::string(const std::string& text)> take;

    bool isRequired = false;
    std::vector<std::string> needed;    ///< names of options that this one needs
    std::vector<std::string> excluded;  ///< names of options that this one excludes

    /// The name that messages use: the long one.
    const std::string& name() const { return names.back(); }
    bool isPositional() const { return names.front().front() != '-'; }

    /// A command line without this option is wrong usage.
    Option& required();
    /// This option is wrong usage without the other one.
    Option& needs(const Option& other);
    /// This option is wrong usage together with the other one.
    Option& excludes(const Option& other);
};

/// The options and positional arguments of a command, in the order in which help lists them. They
/// are plain data: command line, help, manual page and completion follow from them. A value goes
/// where its declaration says; that place outlives the parsing. References to options stay valid.
///
/// @p names of an option are "--long" or "-s,--long"; @p value is what help calls its value, a unit
/// where it has one.
class Options {
  public:
    Options() = default;
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;
    Options(Options&&) = default;
    Options& operator=(Options&&) = default;

    /// An option without a value: the target becomes true.
    Option& flag(const std::string& names, bool& target, const std::string& help);
    /// A finite number in the notation that parseNumber reads.
    Option& number(const std::string& names, std::optional<double>& target,
                   const std::string& value, const std::string& help);
    /// Several finite numbers, apart by blanks or commas.
    Option& numbers(const std::string& names, std::vector<double>& target, const std::string& value,
                    const std::string& help);
    /// A whole number, 0 or more.
    Option& count(const std::string& names, std::optional<std::uint64_t>& target,
                  const std::string& value, const std::string& help);
    /// A whole number that counts from 1 on.
    /// @param expected  what the message says of other values
    Option& ordinal(const std::string& names, std::optional<std::uint32_t>& target,
                    const std::string& value, const std::string& expected, const std::string& help);
    /// Three finite numbers apart by commas.
    Option& point(const std::string& names, Tq_1_1::Vec3d<double>& target, const std::string& help);
    /// @param target  a path, or an optional one
    template <typename Target>
    Option& file(const std::string& names, Target& target, const std::string& value,
                 const std::string& help) {
        return takePath(names, value, help, [&target](const std::string& text) { target = text; });
    }
    /// One of a few words.
    /// @param target  gets the value of the word
    template <typename Target, typename Value>
    Option& choice(const std::string& names, Target& target,
                   const std::vector<std::pair<std::string, Value>>& words,
                   const std::string& help) {
        std::vector<std::string> known;
        known.reserve(words.size());
        for (const auto& word : words) {
            known.push_back(word.first);
        }
        return takeWord(names, std::move(known), help,
                        [&target, words](std::size_t i) { target = words[i].second; });
    }

    /// An argument without a name. @param target  a text or a path
    template <typename Target>
    Option& positional(const std::string& name, Target& target, Option::Names valueNames,
                       const std::string& help) {
        return takeText(name, valueNames, help, false,
                        [&target](const std::string& text) { target = text; });
    }
    /// All further arguments without a name.
    Option& positionals(const std::string& name, std::vector<std::string>& target,
                        Option::Names valueNames, const std::string& help);

    const std::deque<Option>& all() const { return options_; }

  private:
    Option& add(const std::string& names, const std::string& value, const std::string& help);
    Option& takePath(const std::string& names, const std::string& value, const std::string& help,
                     std::function<void(const std::string&)> set);
    Option& takeWord(const std::string& names, std::vector<std::string> words,
                     const std::string& help, std::function<void(std::size_t)> set);
    Option& takeText(const std::string& name, Option::Names valueNames, const std::string& help,
                     bool many, std::function<void(const std::string&)> set);

    std::deque<Option> options_;
};

}  // namespace ScanHost
