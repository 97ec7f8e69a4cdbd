// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/String.h"

#include <cstdint>
#include <utility>

namespace Tq_1_1 {

namespace {

constexpr wchar_t kReplacement = L'\uFFFD';

/// Whether a number is a code point that UTF-8 can hold; surrogates are none.
bool isCharacter(char32_t code) {
    return code <= 0x10FFFF && !(code >= 0xD800 && code < 0xE000);
}

struct Decoded {
    char32_t code;
    std::size_t length;  // bytes taken
};

/// The code point at the front of a text that is not empty.
Decoded decodeFront(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) {
        return {lead, 1};
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) {
        return {kReplacement, 1};
    }
    char32_t code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0U) != 0x80U) {
            return {kReplacement, 1};
        }
        code = (code << 6) | (next & 0x3FU);
    }
    const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    if (overlong || !isCharacter(code)) {
        return {kReplacement, 1};
    }
    return {code, length};
}

void appendUtf8(std::string& out, char32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

}  // namespace

const String String::NIL;
const String String::EMPTY{L""};

String::String(const wchar_t* text) {
    if (text != nullptr) {
        text_.emplace(text);
    }
}

String::String(std::wstring text) : text_(std::move(text)) {}

String String::fromUtf8(std::string_view text) {
    std::wstring wide;
    wide.reserve(text.size());
    while (!text.empty()) {
        const auto [code, length] = decodeFront(text);
        wide += static_cast<wchar_t>(code);
        text.remove_prefix(length);
    }
    return String(std::move(wide));
}

std::string String::toUtf8() const {
    std::string out;
    if (text_) {
        out.reserve(text_->size());
        for (const wchar_t c : *text_) {
            appendUtf8(out, isCharacter(static_cast<char32_t>(c)) ? static_cast<char32_t>(c)
                                                                  : kReplacement);
        }
    }
    return out;
}

int String::compare(const String& other) const {
    if (!text_ || !other.text_) {
        return static_cast<int>(text_.has_value()) - static_cast<int>(other.text_.has_value());
    }
    return text_->compare(*other.text_);
}

String String::substring(int from, int count) const {
    if (!text_ || from < 0 || count <= 0 || static_cast<std::size_t>(from) >= text_->size()) {
        return EMPTY;
    }
    return String(text_->substr(static_cast<std::size_t>(from), static_cast<std::size_t>(count)));
}

}  // namespace Tq_1_1
