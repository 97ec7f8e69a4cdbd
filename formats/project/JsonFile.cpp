// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "project/JsonFile.h"

#include <json/reader.h>

#include <algorithm>
#include <limits>
#include <memory>
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

bool JsonFile::read(const std::filesystem::path& file, std::uint64_t maximumSize) {
    file_ = file;
    InputFile input;
    if (ErrorPtr error = input.open(file)) {
        fail(std::move(error));
        return false;
    }
    if (input.size() > maximumSize) {
        fail(makeError(ErrorCode::WrongFormat, {input.name(), "", countText(input.size(), "byte"),
                                                "at most " + countText(maximumSize, "byte")}));
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
        fail(makeError(ErrorCode::WrongFormat, {file_.string(), placeAt(deepest(text_)),
                                                "values nested more deeply than anyone reads",
                                                "at most " + countText(kDeepestNesting, "level")}));
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
                   {file_.string(), place, "malformed JSON: " + message, ""}));
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
    return "line " + std::to_string(line) + ", column " +
           std::to_string(before.size() - lineStart + 1);
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

void JsonFile::warnOfUnknown(const std::string& key, const Json::Value& value) {
    if (warnings_.size() >= kMostWarnings) {
        ++warningsLeftOut_;
        return;
    }
    const Fault fault{file_.string(), placeOf(value),
                      "the field " + inQuotes(key) + ", of which nothing is known", ""};
    warnings_.emplace_back(value.getOffsetStart(),
                           makeError(ErrorCode::InvalidValue, fault)->message());
}

std::vector<std::string> JsonFile::warnings() const {
    auto ordered = warnings_;
    std::sort(ordered.begin(), ordered.end());
    std::vector<std::string> lines;
    lines.reserve(ordered.size() + 1);
    for (auto& [offset, line] : ordered) {
        lines.push_back(std::move(line));
    }
    if (warningsLeftOut_ != 0) {
        lines.push_back(file_.string() + ": " +
                        countText(warningsLeftOut_, "further unknown field"));
    }
    return lines;
}

JsonMembers::JsonMembers(JsonFile& file, const Json::Value& value)
    : file_(file), value_(value), isObject_(value.isObject()) {
    if (!isObject_) {
        file.fail(value, describeValue(file, value), "an object");
    }
}

bool JsonMembers::has(const char* key) const {
    return isObject_ && value_.isMember(key);
}

const Json::Value* JsonMembers::find(const char* key) {
    known_.insert(key);
    return has(key) ? &value_[key] : nullptr;
}

const Json::Value* JsonMembers::require(const char* key) {
    const Json::Value* const member = find(key);
    if (member == nullptr) {
        file_.fail(value_, "no field " + inQuotes(key) + " in this object", "one");
    }
    return member;
}

void JsonMembers::get(const char* key, std::optional<std::string>& out) {
    if (const Json::Value* member = find(key)) {
        out = readText(file_, *member);
    }
}

void JsonMembers::get(const char* key, std::optional<double>& out) {
    if (const Json::Value* member = find(key)) {
        out = readNumber(file_, *member);
    }
}

void JsonMembers::get(const char* key, std::optional<std::uint32_t>& out) {
    const Json::Value* const member = find(key);
    if (member == nullptr) {
        return;
    }
    const auto number =
        member->isNumeric() ? parseInteger(file_.textOf(*member)) : std::optional<std::int64_t>();
    if (!number || *number < 0 || *number > std::numeric_limits<std::uint32_t>::max()) {
        file_.fail(*member, describeValue(file_, *member), "a whole number from 0 to 4294967295");
        return;
    }
    out = static_cast<std::uint32_t>(*number);
}

void JsonMembers::require(const char* key, std::string& out) {
    const Json::Value* const member = require(key);
    if (member == nullptr) {
        return;
    }
    if (auto text = readText(file_, *member)) {
        out = *std::move(text);
    }
}

void JsonMembers::warnOfOthers() const {
    if (!isObject_) {
        return;
    }
    for (const std::string& key : value_.getMemberNames()) {
        if (!known_.contains(key)) {
            file_.warnOfUnknown(key, value_[key]);
        }
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
            return "the text " + inQuotes(value.asString());
        case Json::arrayValue:
            return "an array of " + countText(value.size(), "value");
        case Json::objectValue:
            return "an object";
        default:
            return "the number " + inQuotes(file.textOf(value));
    }
}

}  // namespace Ovr::Formats
