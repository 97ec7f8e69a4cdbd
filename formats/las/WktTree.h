// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Ovr::Formats {

/// An element of a well-known text: KEYWORD["value",number,KEYWORD[...],...].
struct WktNode {
    std::string keyword;              ///< upper case
    std::vector<std::string> values;  ///< texts without their quotes, numbers and bare words
    std::vector<WktNode> nodes;       ///< elements within

    /// The first value; empty when there is none.
    std::string name() const { return values.empty() ? std::string() : values.front(); }
    /// The first element within that has one of the keywords; empty when none has.
    const WktNode* find(std::initializer_list<std::string_view> keywords) const;
};

/// Reads a well-known text of either version.
/// @return empty when it is none: brackets that do not match, text after the last one, deeper
///         nesting than coordinate systems have
std::optional<WktNode> parseWkt(std::string_view text);

}  // namespace Ovr::Formats
