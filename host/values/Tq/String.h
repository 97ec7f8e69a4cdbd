// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "HostExport.h"

namespace Tq_1_1 {

/// The host's wide string. It may hold no value (a null string). A null string is not the empty
/// string: several operations return it for "nothing".
class HOST_EXPORT String {
  public:
    static const String NIL;    ///< no value
    static const String EMPTY;  ///< a value of no characters

    String() = default;           ///< a null string
    String(const wchar_t* text);  // NOLINT(google-explicit-constructor): literals are host strings
    explicit String(std::wstring text);

    /// @param text  UTF-8; a byte that is no valid UTF-8 becomes U+FFFD
    static String fromUtf8(std::string_view text);
    /// @return UTF-8; empty for a null string
    std::string toUtf8() const;

    bool isNull() const { return !text_.has_value(); }
    /// Null or without characters.
    bool isNullOrEmpty() const { return !text_.has_value() || text_->empty(); }
    /// Number of characters; 0 for a null string.
    std::size_t length() const { return text_ ? text_->size() : 0; }
    /// Zero-terminated characters; L"" for a null string. Valid until the string changes.
    const wchar_t* c_str() const { return text_ ? text_->c_str() : L""; }

    /// Compares character codes; case counts. A null string is less than every value.
    /// @return negative, 0 or positive
    int compare(const String& other) const;

    /// At most @p count characters, the first one at index @p from.
    /// @return the empty string for a null string, for a @p from after the end, and for a negative
    ///         @p from or @p count
    String substring(int from, int count) const;

    friend bool operator==(const String& a, const String& b) { return a.text_ == b.text_; }
    friend bool operator<(const String& a, const String& b) { return a.compare(b) < 0; }

  private:
    std::optional<std::wstring> text_;
};

}  // namespace Tq_1_1
