// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "report/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>
#include <utility>

#include <fmt/format.h>

#include "Tq/String.h"
#include "kit/TextFields.h"

namespace ScanHost {

namespace {

// Room for a sign, 17 digits, a point and an exponent.
constexpr std::size_t kLongestShortNumber = 32;

std::optional<std::string> nameOfNonFinite(double value) {
    if (std::isnan(value)) {
        return "not a number";
    }
    if (std::isinf(value)) {
        return value > 0 ? "infinite" : "-infinite";
    }
    return std::nullopt;
}

// Both blocks of control characters: U+009B alone starts a terminal's escape sequence.
bool isControl(wchar_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

}  // namespace

std::string fixedText(double value, int digits) {
    if (auto name = nameOfNonFinite(value)) {
        return *name;
    }
    std::string result = fmt::format("{:.{}f}", value, digits);
    const bool zero = result.find_first_not_of("-0.") == std::string::npos;
    return zero && result.front() == '-' ? result.substr(1) : result;
}

std::string shortText(double value) {
    if (auto name = nameOfNonFinite(value)) {
        return *name;
    }
    // fmt writes 100000 and 0.0001 where this writes 1e+05 and 1e-04.
    std::array<char, kLongestShortNumber> text;
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} ? std::string(text.data(), end) : std::string();
}

std::string pointText(const Tq_1_1::Vec3d<double>& point, int digits) {
    return fmt::format("{}, {}, {}", fixedText(point.x, digits), fixedText(point.y, digits),
                       fixedText(point.z, digits));
}

std::string countText(std::uint64_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

std::optional<double> parseNumber(std::string_view text) {
    double value = 0.0;
    return Ovr::Formats::parseNumber(text, value) ? std::optional(value) : std::nullopt;
}

std::optional<std::uint64_t> parseCount(std::string_view text) {
    std::uint64_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

std::optional<Tq_1_1::Vec3d<double>> parsePoint(std::string_view text) {
    Tq_1_1::Vec3d<double> point;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t comma = i < 2 ? text.find(',') : text.size();
        if (comma == std::string_view::npos) {
            return std::nullopt;
        }
        const std::optional<double> value = parseNumber(text.substr(0, comma));
        if (!value) {
            return std::nullopt;
        }
        point[i] = *value;
        text.remove_prefix(i < 2 ? comma + 1 : comma);
    }
    return point;
}

std::string shortened(std::string_view text, std::size_t longest) {
    return text.size() <= longest ? printable(text) : printable(text.substr(0, longest)) + "...";
}

std::string printable(std::string_view text) {
    const Tq_1_1::String wide = Tq_1_1::String::fromUtf8(text);
    std::wstring characters(wide.c_str(), wide.length());
    std::replace_if(characters.begin(), characters.end(), isControl, L'?');
    return Tq_1_1::String(std::move(characters)).toUtf8();
}

}  // namespace ScanHost
