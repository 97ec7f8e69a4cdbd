// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace Ovr::Formats {

/// @return whether the character separates fields of a line: a blank, a tab, or the carriage return
///         of a foreign line end
constexpr bool isBlank(char c) {
    // The first comparison settles what stands in fields.
    return static_cast<unsigned char>(c) <= ' ' &&
           (c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f');
}

/// The text without blanks at both ends.
std::string_view trimmed(std::string_view text);

/// Cuts a line at its blanks.
/// @param fields  receives the first fields, as many as fit
/// @return number of fields of the line, also when it is more than fit
std::size_t splitFields(std::string_view line, std::span<std::string_view> fields);

/// Reads a decimal number with a point, in the same way under every locale; a plus sign in front is
/// fine. A number too close to 0 for a double becomes the nearest there is.
/// @return false, with @p value untouched, for anything else: words, "nan", "inf", a number too
///         large for a double, characters left over
[[nodiscard]] bool parseNumber(std::string_view field, double& value);

/// Reads a decimal integer.
/// @return empty for anything else, also for a number that does not fit
std::optional<std::int64_t> parseInteger(std::string_view field);

/// A piece of a file in single quotes for a message, cut when it is long.
std::string inQuotes(std::string_view text);

/// A time for a message, to the microsecond [s].
std::string secondsText(double seconds);

/// "1 field", "3 fields".
std::string countText(std::uint64_t count, std::string_view noun);

}  // namespace Ovr::Formats
