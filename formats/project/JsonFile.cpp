// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "project/JsonFile.h"

#include <fmt/format.h>
#include <json/reader.h>

#include <algorithm>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "Tq/String.h"
#include "kit/InputFile.h"
#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

// Enough for any project; the parser works recursively and must not use up the stack.
constexpr int kDeepestNesting = 64;

constexpr std::size_t kMostWarnings = 100;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::unique_ptr<Json::CharReader> makeParser() {
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    builder["stackLimit"] = kDeepestNesting;
    builder["collectComments"] = false;
    return std::unique_ptr<Json::CharReader>(builder.newCharReader());
}

/// Where brackets are nested too deeply for the first time; else the text's end.
std::size_t deepest(std::string_view text) {
    int depth = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted) {
            i += c == '\\' ? 1 : 0;
            quoted = c != '"';
        } else if (c == '[' || c == '{') {
            if (++depth > kDeepestNesting) {
                return i;
            }
        } else {
            depth -= c == ']' || c == '}' ? 1 : 0;
            quoted = c == '"';
        }
    }
    return text.size();
}

bool isPlainText(const std::string& text) {
    const bool printable = std::all_of(text.begin(), text.end(), [](char c) {
        return static_cast<unsigned char>(c) >= 0x20 && c != 0x7F;
    });
    return printable && Tq_1_1::String::fromUtf8(text).toUtf8() == text;
}

}  // namespace

bool JsonFile::read(const std::filesystem::path& file) {
    file_ = file;
    InputFile input;
    if (ErrorPtr error = input.open(file)) {
        fail(std::move(error));
        return false;
    }
    text_.resize(static_cast<std::size_t>(input.size()));
    if (input.readAt(0, text_) != text_.size()) {
        fail(makeError(ErrorCode::CannotRead,
                       {input.name(), "", "a file that cannot be read to its end", ""}));
        return false;
    }
    if (text_.starts_with(kByteOrderMark)) {
        text_.erase(0, kByteOrderMark.size());  // the parser skips it, but does not count it
    }
    parse();
    return !failed();
}

void JsonFile::parse() {
    std::string report;
    try {
        if (!makeParser()->parse(text_.data(), text_.data() + text_.size(), &root_, &report)) {
            failToParse(report);
            return;
        }
    } catch (const Json::Exception&) {
        fail(makeError(
            ErrorCode::WrongFormat,
            {file_.string(), placeAt(deepest(text_)), "values nested more deeply than anyone reads",
             fmt::format("at most {}", countText(kDeepestNesting, "level"))}));
        return;
    }
    if (!root_.isObject()) {
        fail(root_, describeValue(*this, root_), "an object", ErrorCode::WrongFormat);
    }
}

/// The parser reports its errors as lines "* Line 3, Column 15" and "  message" by turns, the first
/// of them the one that counts.
void JsonFile::failToParse(const std::string& report) {
    const std::size_t placeEnd = report.find('\n');
    const std::size_t messageEnd = report.find('\n', placeEnd + 1);
    std::string place = report.substr(0, placeEnd);
    place.erase(0, place.find_first_not_of("* "));
    std::transform(place.begin(), place.end(), place.begin(), [](char c) {
        return c == 'L' || c == 'C' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    std::string message = placeEnd == std::string::npos
                              ? std::string()
                              : report.substr(placeEnd + 1, messageEnd == std::string::npos
                                                                ? std::string::npos
                                                                : messageEnd - placeEnd - 1);
    message.erase(0, std::min(message.find_first_not_of(' '), message.size()));
    fail(makeError(ErrorCode::WrongFormat,
                   {file_.string(), place, fmt::format("malformed JSON: {}", message), ""}));
}

std::string_view JsonFile::textOf(const Json::Value& value) const {
    const auto begin = static_cast<std::size_t>(value.getOffsetStart());
    const auto end = static_cast<std::size_t>(value.getOffsetLimit());
    return std::string_view(text_).substr(begin, end - begin);
}

std::string JsonFile::placeOf(const Json::Value& value) const {
    return placeAt(static_cast<std::size_t>(value.getOffsetStart()));
}

std::string JsonFile::placeAt(std::size_t offset) const {
    const std::string_view before = std::string_view(text_).substr(0, offset);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const std::size_t lineStart = before.rfind('\n') + 1;  // 0 when there is no line end
    return fmt::format("line {}, column {}", line, before.size() - lineStart + 1);
}

void JsonFile::fail(ErrorPtr error) {
    if (!failed()) {
        error_ = std::move(error);
    }
}

void JsonFile::fail(const Json::Value& at, std::string found, std::string expected,
                    ErrorCode code) {
    if (!failed()) {
        error_ =
            makeError(code, {file_.string(), placeOf(at), std::move(found), std::move(expected)});
    }
}

void JsonFile::noteUnknown(const std::string& key, const Json::Value& value) {
    unknown_.emplace_back(value.getOffsetStart(), key);
}

void JsonFile::remark(Remarks& remarks) const {
    auto ordered = unknown_;
    std::sort(ordered.begin(), ordered.end());
    const std::size_t told = std::min(ordered.size(), kMostWarnings);
    for (const auto& [offset, key] : std::span(ordered).first(told)) {
        const Fault fault{file_.string(), placeAt(static_cast<std::size_t>(offset)),
                          fmt::format("the field {}, of which nothing is known", inQuotes(key)),
                          ""};
        remarks.warn(makeError(ErrorCode::InvalidValue, fault)->message());
    }
    if (told != ordered.size()) {
        remarks.warn(fmt::format("{}: {}", file_.string(),
                                 countText(ordered.size() - told, "further unknown field")));
    }
}

std::optional<std::string> readText(JsonFile& file, const Json::Value& value) {
    if (!value.isString()) {
        file.fail(value, describeValue(file, value), "text");
        return std::nullopt;
    }
    std::string text = value.asString();
    if (text.empty() || !isPlainText(text)) {
        file.fail(value,
                  text.empty() ? "empty text" : "text with control characters or not in UTF-8",
                  "plain text");
        return std::nullopt;
    }
    return text;
}

std::optional<double> readNumber(JsonFile& file, const Json::Value& value) {
    double number = 0.0;
    // From the file's own characters: the parser takes a lone minus for 0.
    if (!value.isNumeric() || !parseNumber(file.textOf(value), number)) {
        file.fail(value, describeValue(file, value), "a number");
        return std::nullopt;
    }
    return number;
}

std::string describeValue(const JsonFile& file, const Json::Value& value) {
    switch (value.type()) {
        case Json::nullValue:
            return "null";
        case Json::booleanValue:
            return value.asBool() ? "true" : "false";
        case Json::stringValue:
            return fmt::format("the text {}", inQuotes(value.asString()));
        case Json::arrayValue:
            return fmt::format("an array of {}", countText(value.size(), "value"));
        case Json::objectValue:
            return "an object";
        default:
            return fmt::format("the number {}", inQuotes(file.textOf(value)));
    }
}

}  // namespace Ovr::Formats
