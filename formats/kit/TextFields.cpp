// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/TextFields.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace Ovr::Formats {

namespace {

constexpr std::size_t kLongestQuote = 40;
constexpr double kLongestFixed = 1e50;  // beyond, digits in full only fill the line

/// The field without a plus sign in front, which std::from_chars refuses.
std::string_view withoutPlus(std::string_view field) {
    const bool plus = field.size() > 1 && field[0] == '+' && field[1] != '-' && field[1] != '+';
    return plus ? field.substr(1) : field;
}

/// Integers of so many digits, and powers of ten up to that, are exact in a double.
constexpr std::size_t kExactDigits = 15;
constexpr std::array<double, kExactDigits + 1> kPowersOfTen{
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Reads a number in the usual form, a few digits with or without a point among them. A quotient of
/// two exact numbers is rounded once: it is the double that std::from_chars gives, in half the
/// time.
/// @return false for all other forms
bool parseShort(std::string_view number, double& value) {
    const bool isNegative = !number.empty() && number.front() == '-';
    number.remove_prefix(isNegative ? 1 : 0);
    if (number.empty() || number.size() > kExactDigits) {
        return false;
    }
    std::int64_t digits = 0;
    std::size_t point = number.size();
    for (std::size_t i = 0; i < number.size(); ++i) {
        const int digit = number[i] - '0';
        if (digit >= 0 && digit <= 9) {
            digits = 10 * digits + digit;
        } else if (number[i] == '.' && point == number.size() && i != 0) {
            point = i;
        } else {
            return false;
        }
    }
    const std::size_t decimals = point == number.size() ? 0 : number.size() - point - 1;
    const double size = static_cast<double>(digits) / kPowersOfTen[decimals];
    value = isNegative ? -size : size;
    return true;
}

/// Reads a number of which is known that it lies outside the range of doubles.
/// @return false when it is too large rather than too small
bool parseTiny(std::string_view number, double& value) {
    long double wide = 0.0L;
    const char* const end = number.data() + number.size();
    if (std::from_chars(number.data(), end, wide).ec != std::errc() || std::abs(wide) > 1.0L) {
        return false;
    }
    value = static_cast<double>(wide);
    return true;
}

}  // namespace

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::size_t splitFields(std::string_view line, std::span<std::string_view> fields) {
    const char* at = line.data();
    const char* const end = at + line.size();
    std::size_t count = 0;
    for (;;) {
        while (at != end && isBlank(*at)) {
            ++at;
        }
        if (at == end) {
            return count;
        }
        const char* const begin = at;
        while (at != end && !isBlank(*at)) {
            ++at;
        }
        if (count < fields.size()) {
            fields[count] = {begin, static_cast<std::size_t>(at - begin)};
        }
        ++count;
    }
}

bool parseNumber(std::string_view field, double& value) {
    const std::string_view number = withoutPlus(field);
    if (parseShort(number, value)) {
        return true;
    }
    const char* const end = number.data() + number.size();
    double parsed = 0.0;
    const auto [stop, failure] = std::from_chars(number.data(), end, parsed);
    if (stop != end || (failure == std::errc::result_out_of_range && !parseTiny(number, parsed)) ||
        failure == std::errc::invalid_argument || !std::isfinite(parsed)) {
        return false;
    }
    value = parsed;
    return true;
}

std::optional<std::int64_t> parseInteger(std::string_view field) {
    const std::string_view number = withoutPlus(field);
    const char* const end = number.data() + number.size();
    std::int64_t value = 0;
    const auto [stop, failure] = std::from_chars(number.data(), end, value);
    if (failure != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

std::string inQuotes(std::string_view text) {
    const bool cut = text.size() > kLongestQuote;
    return fmt::format("'{}{}'", text.substr(0, kLongestQuote), cut ? "..." : "");
}

std::string secondsText(double seconds) {
    return std::abs(seconds) < kLongestFixed ? fmt::format("{:.6f}", seconds)
                                             : fmt::format("{:.9g}", seconds);
}

std::string countText(std::uint64_t count, std::string_view noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

}  // namespace Ovr::Formats
