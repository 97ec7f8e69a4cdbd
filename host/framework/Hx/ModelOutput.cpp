// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/ModelOutput.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace Hx {

namespace {

// Unformatted, so that neither width nor base nor precision of the stream shows in the text.
void writeText(std::ostream& out, std::string_view text) {
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

bool isControl(wchar_t c) {
    const auto code = static_cast<char32_t>(c);
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

void appendEscaped(std::wstring& out, wchar_t c) {
    constexpr wchar_t kDigits[] = L"0123456789abcdef";
    if (isControl(c)) {
        const auto code = static_cast<char32_t>(c);
        out += L"\\u00";
        out += kDigits[code >> 4];
        out += kDigits[code & 0xF];
        return;
    }
    if (c == L'"' || c == L'\\') {
        out += L'\\';
    }
    out += c;
}

}  // namespace

WriteContextBase::~WriteContextBase() = default;

void ModelOutFormat::startValue(const Tq_1_1::String& name) {
    const int blanks = std::max(0, context_.depth * context_.getFormat().indent);
    writeText(out_, std::string(static_cast<std::size_t>(blanks), ' '));
    writeText(out_, name.toUtf8());
    writeText(out_, " = ");
    ++context_.depth;
}

void ModelOutFormat::endValue() {
    --context_.depth;
    writeText(out_, "\n");
}

WriteToScope::WriteToScope(std::ostream& out, std::shared_ptr<WriteContextBase> context)
    : context_(std::move(context)), mof_(out, *context_), depthBefore_(context_->depth++) {}

WriteToScope::~WriteToScope() {
    close();
}

void WriteToScope::close() {
    if (open_) {
        context_->depth = depthBefore_;
        open_ = false;
    }
}

void DataOutFormat<Tq_1_1::String>::put(const Tq_1_1::String& value) {
    if (value.isNull()) {
        writeText(out_, "null");
        return;
    }
    std::wstring text = L"\"";
    for (const wchar_t c : std::wstring_view(value.c_str(), value.length())) {
        appendEscaped(text, c);
    }
    text += L'"';
    writeText(out_, Tq_1_1::String(std::move(text)).toUtf8());
}

}  // namespace Hx
