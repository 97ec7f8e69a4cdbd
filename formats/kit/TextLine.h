// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "Ovr/Errors.h"

namespace Ovr::Formats {

/// A line of a text file. Valid as long as the memory that it was read into.
struct TextLine {
    std::string_view file;     ///< its name as the user wrote it
    std::string_view text;     ///< without blanks at both ends
    std::uint64_t number = 0;  ///< counted from 1

    /// A fault in this line.
    [[nodiscard]] ErrorPtr fault(Interfaces::ErrorCode code, std::string found,
                                 std::string expected) const;
};

/// Walks over the lines of a piece of a file that hold something.
class LineWalk {
  public:
    /// @param text    whole lines; the last one may lack its line end
    /// @param number  of the first line, counted from 1
    LineWalk(std::string_view file, std::string_view text, std::uint64_t number)
        : line_{file, {}, number - 1}, text_(text) {}

    /// @return false at the end of the text
    bool next();
    /// The current line.
    const TextLine& line() const { return line_; }
    /// Where the current line begins in the text [bytes].
    std::size_t begin() const { return begin_; }

  private:
    TextLine line_;
    std::string_view text_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;  ///< after the current line and its line end
};

}  // namespace Ovr::Formats
