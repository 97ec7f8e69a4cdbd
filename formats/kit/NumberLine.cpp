// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/NumberLine.h"

#include <fmt/format.h>

#include <array>

#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

ErrorPtr readNumbers(const TextLine& line, std::span<double> numbers, std::string_view why) {
    std::array<std::string_view, kMostNumbers> fields;
    const std::size_t count = splitFields(line.text, fields);
    if (count != numbers.size()) {
        return line.fault(ErrorCode::WrongFormat, countText(count, "field"),
                          fmt::format("{}{}", numbers.size(), why));
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (!parseNumber(fields[i], numbers[i])) {
            return line.fault(ErrorCode::InvalidValue,
                              fmt::format("{} as field {}", inQuotes(fields[i]), i + 1),
                              "a finite number");
        }
    }
    return nullptr;
}

}  // namespace Ovr::Formats
