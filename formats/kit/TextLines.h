// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Ovr/Errors.h"
#include "kit/InputFile.h"
#include "kit/LineCount.h"
#include "kit/TextLine.h"

namespace Ovr::Formats {

/// Lines of a text file that were read at once.
struct TextBlock {
    std::vector<char> memory;
    std::string_view text;        ///< whole lines, in the memory; the file's last may lack its end
    std::uint64_t offset = 0;     ///< where the text begins in the file [bytes]
    std::uint64_t firstLine = 0;  ///< number of the text's first line, counted from 1
    std::uint64_t count = 0;      ///< lines that hold something
};

/// Walks over the lines of a text file that hold something, in a buffer of fixed size. Line ends
/// of either kind, blanks around a line, empty lines, a byte-order mark at the file's beginning and
/// a last line without line end make no difference.
class TextLines {
  public:
    /// @param offset  where to begin [bytes]: the beginning of a line
    /// @param line    the number of that line, counted from 1
    /// @return empty on success. Requires: called once.
    [[nodiscard]] ErrorPtr open(const std::filesystem::path& file, std::uint64_t offset = 0,
                                std::uint64_t line = 1);

    /// Goes to the next line that is not blank.
    /// @return false at the file's end and when a line is too long, see error()
    bool next();
    /// The same where a line has to follow.
    /// @param expected  what the line would hold, for the message at the file's end
    /// @return Truncated at the file's end; the fault when the line is too long
    [[nodiscard]] ErrorPtr require(std::string_view expected);

    /// Makes the current line the next one again. Requires: next() was true.
    void back();

    /// Goes over lines without looking into them; after that no line is current.
    /// @param count  of lines that are not blank
    /// @return how many there were: fewer at the file's end and when a line is too long, see
    ///         error()
    std::uint64_t skip(std::uint64_t count);
    /// Reads the next lines, for a walk that other threads may make; after that no line is current.
    /// @param block  out; its memory is used again
    /// @param size   of the block [bytes]; it is larger only when the next line is
    /// @param most   lines that are not blank; the block ends right after the last of them
    /// @return false at the file's end and when the next line is too long, see error()
    bool nextBlock(TextBlock& block, std::size_t size, std::uint64_t most);

    /// The current line; valid until next().
    TextLine current() const { return {file_.name(), text_, line_}; }
    /// Its text without blanks at its ends; valid until next().
    std::string_view text() const { return text_; }
    /// Number of the current line; after the end, of the last one; after skip() and nextBlock(), of
    /// the last one there.
    std::uint64_t line() const { return line_; }
    /// Where the current line begins in the file [bytes].
    std::uint64_t offset() const { return offset_; }

    /// Empty unless next() stopped because of a fault. Hands the fault over.
    [[nodiscard]] ErrorPtr error() { return std::move(error_); }
    /// A fault in the current line.
    [[nodiscard]] ErrorPtr fault(Interfaces::ErrorCode code, std::string found,
                                 std::string expected) const {
        return current().fault(code, std::move(found), std::move(expected));
    }

    std::uint64_t fileSize() const { return file_.size(); }
    const std::string& fileName() const { return file_.name(); }

  private:
    bool nextRaw();
    bool fill();
    void pass(const LineCount& lines);
    void skipByteOrderMark();

    InputFile file_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;           ///< of what is not handed out yet, in the buffer
    std::size_t end_ = 0;             ///< of what is read, in the buffer
    std::uint64_t bufferOffset_ = 0;  ///< where the buffer's first byte stands in the file
    std::uint64_t nextLine_ = 1;
    std::string_view text_;
    std::uint64_t line_ = 0;
    std::uint64_t offset_ = 0;
    ErrorPtr error_;
};

}  // namespace Ovr::Formats
