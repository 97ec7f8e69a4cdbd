// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/TextLines.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 18;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

ErrorPtr TextLines::open(const std::filesystem::path& file, std::uint64_t offset,
                         std::uint64_t line) {
    if (ErrorPtr error = file_.open(file)) {
        return error;
    }
    buffer_.resize(kBufferSize);
    bufferOffset_ = offset;
    nextLine_ = line;
    line_ = line;
    if (offset == 0) {
        skipByteOrderMark();
    }
    return nullptr;
}

void TextLines::skipByteOrderMark() {
    fill();
    if (std::string_view(buffer_.data(), end_).substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        begin_ = kByteOrderMark.size();
    }
}

bool TextLines::next() {
    while (nextRaw()) {
        text_ = trimmed(text_);
        if (!text_.empty()) {
            return true;
        }
    }
    text_ = {};
    return false;
}

ErrorPtr TextLines::require(std::string_view expected) {
    if (next()) {
        return nullptr;
    }
    return error_ ? std::move(error_)
                  : fault(ErrorCode::Truncated, "the end of the file", std::string(expected));
}

void TextLines::back() {
    begin_ = static_cast<std::size_t>(offset_ - bufferOffset_);
    nextLine_ = line_;
}

std::uint64_t TextLines::skip(std::uint64_t count) {
    std::uint64_t done = 0;
    while (done < count) {
        const LineCount some =
            countLines({buffer_.data() + begin_, end_ - begin_}, count - done, false);
        pass(some);
        done += some.filled;
        // Then a line follows that the buffer does not hold whole.
        if (done < count) {
            if (!next()) {
                return done;
            }
            ++done;
        }
    }
    return done;
}

bool TextLines::nextBlock(TextBlock& block, std::size_t size, std::uint64_t most) {
    block.offset = bufferOffset_ + begin_;
    block.firstLine = nextLine_;
    const std::uint64_t rest = file_.size() - std::min(file_.size(), block.offset);
    block.memory.resize(static_cast<std::size_t>(std::min<std::uint64_t>(size, rest)));
    const std::size_t got = file_.readAt(block.offset, block.memory);
    const LineCount some = countLines({block.memory.data(), got}, most, got == rest);
    bufferOffset_ = block.offset;
    begin_ = 0;
    end_ = 0;
    if (some.filled != 0) {
        bufferOffset_ += some.bytes;
        pass({0, some.lines, some.filled});
        block.text = {block.memory.data(), some.bytes};
        block.count = some.filled;
        return true;
    }
    // Only blanks, the file's end, or a line that does not fit.
    if (!next()) {
        return false;
    }
    block.memory.assign(text_.begin(), text_.end());
    block.text = {block.memory.data(), block.memory.size()};
    block.offset = offset_;
    block.firstLine = line_;
    block.count = 1;
    return true;
}

/// Lines of the buffer, or of a block before it, are done.
void TextLines::pass(const LineCount& lines) {
    begin_ += lines.bytes;
    nextLine_ += lines.lines;
    line_ = lines.lines == 0 ? line_ : nextLine_ - 1;
}

bool TextLines::nextRaw() {
    const char* lineEnd = nullptr;
    for (std::size_t searched = 0;;) {
        const char* const from = buffer_.data() + begin_ + searched;
        const std::size_t rest = end_ - begin_ - searched;
        lineEnd = rest == 0 ? nullptr : static_cast<const char*>(std::memchr(from, '\n', rest));
        searched += lineEnd == nullptr ? rest : static_cast<std::size_t>(lineEnd - from);
        if (searched > kLongestLine) {
            line_ = nextLine_;
            error_ = fault(ErrorCode::WrongFormat,
                           fmt::format("a line of more than {} characters", kLongestLine),
                           "lines of numbers");
            return false;
        }
        if (lineEnd != nullptr) {
            break;
        }
        if (!fill()) {
            if (error_) {
                return false;
            }
            lineEnd = buffer_.data() + end_;
            break;
        }
    }
    const char* const lineBegin = buffer_.data() + begin_;
    const auto length = static_cast<std::size_t>(lineEnd - lineBegin);
    if (begin_ == end_) {
        return false;
    }
    text_ = {lineBegin, length};
    offset_ = bufferOffset_ + begin_;
    line_ = nextLine_++;
    begin_ += length + (begin_ + length < end_ ? 1 : 0);
    return true;
}

/// Moves what is left to the buffer's front and reads on after it.
bool TextLines::fill() {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    bufferOffset_ += begin_;
    end_ -= begin_;
    begin_ = 0;
    const std::size_t got = file_.readAt(bufferOffset_ + end_, std::span(buffer_).subspan(end_));
    end_ += got;
    if (got == 0 && bufferOffset_ + end_ < file_.size()) {
        line_ = nextLine_;
        error_ = fault(ErrorCode::CannotRead, "the end of what can be read",
                       fmt::format("the file's {} bytes", file_.size()));
    }
    return got != 0;
}

}  // namespace Ovr::Formats
