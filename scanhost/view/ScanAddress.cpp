// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "view/ScanAddress.h"

#include <array>
#include <string_view>

#include <fmt/format.h>

#include "report/NumberText.h"
#include "session/ScanUnits.h"

namespace ScanHost {

namespace {

/// A word as a shell takes it.
std::string quoted(const std::string& word) {
    constexpr std::string_view kPlain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_./+-:,=@%";
    if (!word.empty() && word.find_first_not_of(kPlain) == std::string::npos) {
        return word;
    }
    std::string text = "'";
    for (const char c : word) {
        text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return text + "'";
}

std::string unitName(Ovr::TimeUnit unit) {
    for (const Ovr::TimeUnitEntry& entry : Ovr::kTimeUnits) {
        if (entry.unit == unit) {
            return std::string(entry.name);
        }
    }
    return {};
}

std::string clockName(Ovr::Clock clock) {
    return std::string(Ovr::kClocks[static_cast<std::size_t>(clock)].name);
}

std::string unitName(Ovr::Formats::UnitKind unit) {
    return shortUnitName(Ovr::Formats::knownUnit(unit));
}

/// Options and their values, one after the other.
class Arguments {
  public:
    void flag(std::string_view name, bool isSet) {
        if (isSet) {
            text_ += fmt::format(" {}", name);
        }
    }
    template <typename Value, typename Name>
    void option(std::string_view name, const std::optional<Value>& value, const Name& nameOf) {
        if (value) {
            // A value that begins with a minus sign would be taken for an option.
            text_ += fmt::format(" {}={}", name, nameOf(*value));
        }
    }
    const std::string& text() const { return text_; }

  private:
    std::string text_;
};

}  // namespace

std::string scanAddress(const std::string& file, std::optional<std::uint32_t> number,
                        const ScanOptions& options) {
    const auto unitOf = [](const auto& unit) { return unitName(unit); };
    Arguments arguments;
    arguments.option("--trajectory", options.trajectory,
                     [](const auto& path) { return quoted(path.string()); });
    arguments.flag("--no-trajectory", options.withoutTrajectory);
    arguments.flag("--sort-trajectory", options.sortTrajectory);
    arguments.option("--time-offset", options.timeOffset, shortText);
    arguments.option("--time-unit", options.timeUnit, unitOf);
    arguments.option("--clock", options.clock, clockName);
    arguments.option("--trajectory-unit", options.trajectoryUnit, unitOf);
    arguments.option("--trajectory-clock", options.trajectoryClock, clockName);
    arguments.option("--unit", options.unit, unitOf);
    arguments.option("--week", options.week, [](std::uint64_t week) { return week; });
    const std::string scan = number ? fmt::format(" --scan {}", *number) : std::string();
    return quoted(file) + scan + arguments.text();
}

}  // namespace ScanHost
