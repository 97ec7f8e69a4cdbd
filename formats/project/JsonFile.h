// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <json/value.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Ovr/Errors.h"
#include "Ovr/Remarks.h"

namespace Ovr::Formats {

/// A JSON file whose values know their place. Keeps the first fault that is found in it: later ones
/// are dropped, so that a file may be read to its end and asked once.
class JsonFile {
  public:
    /// Parses a file: strict JSON, no member twice in one object, an object at the top.
    /// @return whether there is no fault
    [[nodiscard]] bool read(const std::filesystem::path& file);

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
    [[nodiscard]] ErrorPtr takeError() { return std::move(error_); }

    /// Notes a member that nothing is known of.
    void noteUnknown(const std::string& key, const Json::Value& value);
    /// Remarks on these members, one line each, in the order of the file; of a file full of them,
    /// on the first hundred and on how many there are beyond.
    void remark(Remarks& remarks) const;

  private:
    void parse();
    std::string placeAt(std::size_t offset) const;
    void failToParse(const std::string& report);

    std::filesystem::path file_;
    std::string text_;
    Json::Value root_;
    ErrorPtr error_;
    std::vector<std::pair<std::ptrdiff_t, std::string>> unknown_;  ///< place and key
};

/// Readings of a single value. Empty, with a fault, when it is something else.
std::optional<std::string> readText(JsonFile& file, const Json::Value& value);
std::optional<double> readNumber(JsonFile& file, const Json::Value& value);

/// The kind of a value and, where it is short, the value, for messages: "the number 3", "text".
std::string describeValue(const JsonFile& file, const Json::Value& value);

}  // namespace Ovr::Formats
