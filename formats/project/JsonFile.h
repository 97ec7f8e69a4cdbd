// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <json/value.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Ovr/Errors.h"

namespace Ovr::Formats {

/// A JSON file whose values know their place. Keeps the first fault that is found in it: later ones
/// are dropped, so that a file may be read to its end and asked once.
class JsonFile {
  public:
    /// Parses a file: strict JSON, no member twice in one object, an object at the top.
    /// @param maximumSize  [bytes]; a larger file is refused unread
    /// @return whether there is no fault
    bool read(const std::filesystem::path& file, std::uint64_t maximumSize);

    const Json::Value& root() const { return root_; }
    /// What the file says where the value stands; valid as long as this object.
    std::string_view textOf(const Json::Value& value) const;
    /// "line 3, column 15": both from 1, columns in bytes.
    std::string placeOf(const Json::Value& value) const;

    void fail(ErrorPtr error);
    void fail(const Json::Value& at, std::string found, std::string expected,
              Interfaces::ErrorCode code = Interfaces::ErrorCode::InvalidValue);
    bool failed() const { return error_ != nullptr; }
    /// Gives the fault away; empty when there is none.
    ErrorPtr takeError() { return std::move(error_); }

    /// Notes a member that nothing is known of.
    void warnOfUnknown(const std::string& key, const Json::Value& value);
    /// One line each, in the order of the file; a file full of them says how many there were beyond
    /// the first hundred.
    std::vector<std::string> warnings() const;

  private:
    void parse();
    std::string placeAt(std::size_t offset) const;
    void failToParse(const std::string& report);

    std::filesystem::path file_;
    std::string text_;
    Json::Value root_;
    ErrorPtr error_;
    std::vector<std::pair<std::ptrdiff_t, std::string>> warnings_;  // by place
    std::size_t warningsLeftOut_ = 0;
};

/// The members of one JSON object. Each is asked for by its key and type; a value that is not as
/// asked is a fault of the file, and the result stays as it was.
class JsonMembers {
  public:
    /// @param value  a value that is no object is a fault; the members are empty then
    JsonMembers(JsonFile& file, const Json::Value& value);

    /// The member of that key, which counts as known from now on.
    /// @return null without one
    const Json::Value* find(const char* key);
    /// A member that has to be there.
    /// @return null, with a fault, without one
    const Json::Value* require(const char* key);

    /// @return whether a member is there
    bool has(const char* key) const;
    /// Text: UTF-8 without control characters, at least one character.
    void get(const char* key, std::optional<std::string>& out);
    /// A number that fits a double.
    void get(const char* key, std::optional<double>& out);
    /// A whole number that is not negative, written without a point.
    void get(const char* key, std::optional<std::uint32_t>& out);
    /// Text that has to be there.
    void require(const char* key, std::string& out);

    /// Notes the members that were not asked for.
    void warnOfOthers() const;

  private:
    JsonFile& file_;
    const Json::Value& value_;
    bool isObject_;
    std::set<std::string> known_;
};

/// Readings of a single value. Empty, with a fault, when it is something else.
std::optional<std::string> readText(JsonFile& file, const Json::Value& value);
std::optional<double> readNumber(JsonFile& file, const Json::Value& value);

/// The kind of a value and, where it is short, the value, for messages: "the number 3", "text".
std::string describeValue(const JsonFile& file, const Json::Value& value);

}  // namespace Ovr::Formats
