// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>

#include "project/JsonFile.h"

namespace Ovr::Formats {

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
    void noteOthers() const;

  private:
    JsonFile& file_;
    const Json::Value& value_;
    bool isObject_;
    std::set<std::string> known_;
};

}  // namespace Ovr::Formats
