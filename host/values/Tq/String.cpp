// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/String.h"

#include <utf8.h>

#include <utility>

namespace Tq_1_1 {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// Whether a number is a code point that UTF-8 can hold; surrogates are none.
bool isCharacter(char32_t code) {
    return code <= 0x10FFFF && !(code >= 0xD800 && code < 0xE000);
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
    std::wstring wide(text.size(), L'\0');  // a character takes at least one byte
    wchar_t* end = wide.data();
    while (!text.empty()) {
        const std::string_view::iterator valid = utf8::find_invalid(text.begin(), text.end());
        end = utf8::unchecked::utf8to32(text.begin(), valid, end);
        text.remove_prefix(static_cast<std::size_t>(valid - text.begin()));
        if (!text.empty()) {
            *end++ = static_cast<wchar_t>(kReplacement);
            text.remove_prefix(1);
        }
    }
    wide.resize(static_cast<std::size_t>(end - wide.data()));
    return String(std::move(wide));
}

std::string String::toUtf8() const {
    constexpr std::size_t kMostBytes = 4;  // of one character
    std::string out(kMostBytes * length(), '\0');
    char* end = out.data();
    for (const wchar_t c : std::wstring_view(c_str(), length())) {
        const auto code = static_cast<char32_t>(c);
        end = utf8::unchecked::append(isCharacter(code) ? code : kReplacement, end);
    }
    out.resize(static_cast<std::size_t>(end - out.data()));
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
