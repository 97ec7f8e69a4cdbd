// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Uuid.h"

#include <cstddef>

namespace Ovr::uuids {

namespace {

constexpr std::size_t kTextLength = 36;
constexpr std::string_view kHexDigits = "0123456789abcdef";

/// Whether the text form has a hyphen in front of byte @p index.
constexpr bool isHyphenBefore(std::size_t index) {
    return index == 4 || index == 6 || index == 8 || index == 10;
}

std::optional<unsigned> hexValue(char c) {
    const char lower = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
    const std::size_t value = kHexDigits.find(lower);
    if (value == std::string_view::npos) {
        return std::nullopt;
    }
    return static_cast<unsigned>(value);
}

}  // namespace

std::string uuid::string() const {
    std::string text;
    text.reserve(kTextLength);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (isHyphenBefore(i)) {
            text += '-';
        }
        text += kHexDigits[bytes[i] >> 4U];
        text += kHexDigits[bytes[i] & 0xFU];
    }
    return text;
}

std::optional<uuid> uuid::fromString(std::string_view text) {
    if (text.size() == kTextLength + 2 && text.front() == '{' && text.back() == '}') {
        text = text.substr(1, kTextLength);
    }
    if (text.size() != kTextLength) {
        return std::nullopt;
    }
    uuid id;
    std::size_t at = 0;
    for (std::size_t i = 0; i < id.bytes.size(); ++i) {
        if (isHyphenBefore(i) && text[at++] != '-') {
            return std::nullopt;
        }
        const std::optional<unsigned> high = hexValue(text[at++]);
        const std::optional<unsigned> low = hexValue(text[at++]);
        if (!high || !low) {
            return std::nullopt;
        }
        id.bytes[i] = static_cast<std::uint8_t>(*high << 4U | *low);
    }
    return id;
}

}  // namespace Ovr::uuids
