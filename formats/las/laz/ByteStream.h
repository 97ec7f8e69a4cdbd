// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "kit/InputFile.h"

namespace Ovr::Formats::Laz {

/// Where the bytes of a chunk are: in memory, or still in the file.
struct ChunkBytes {
    InputFile* file = nullptr;       ///< null when they are in memory
    std::span<const char> memory{};  ///< the bytes from @p begin on
    std::uint64_t begin = 0;         ///< in the file
    std::uint64_t end = 0;           ///< in the file

    std::uint64_t size() const { return end - begin; }
    /// Copies bytes. @return how many: fewer than asked for at the end.
    std::size_t read(std::uint64_t offset, std::span<char> out) const;
};

/// A run of a chunk's bytes, one after another. Of a file it keeps a window.
/// Threads: one; in memory the bytes may be shared.
class ByteStream {
  public:
    /// @param begin   in the file; from the chunk's begin on
    /// @param end     in the file; what reaches past the chunk's end is cut off
    /// @param window  bytes to keep of a file
    ByteStream(const ChunkBytes& chunk, std::uint64_t begin, std::uint64_t end, std::size_t window);

    bool isEmpty() const { return windowBegin_ == end_; }
    /// Whether the run ends before the place that was asked for.
    bool isCut() const { return cut_; }
    /// Where in the file the next byte stands.
    std::uint64_t position() const { return windowBegin_ + at_; }
    bool isAtEnd() const { return position() == end_; }

    /// Whether there are 4 more bytes.
    bool hasWord() const { return size_ - at_ >= 4 && size_ >= at_; }
    /// Shifts bytes into a value, 0 to 3 of them. Requires: hasWord().
    std::uint32_t shiftIn(std::uint32_t value, unsigned bits) {
        const auto* const p = reinterpret_cast<const unsigned char*>(data_ + at_);
        const std::uint32_t word = std::uint32_t{p[0]} << 24U | std::uint32_t{p[1]} << 16U |
                                   std::uint32_t{p[2]} << 8U | std::uint32_t{p[3]};
        at_ += bits / 8U;
        return value << bits | static_cast<std::uint32_t>((std::uint64_t{word} << bits) >> 32U);
    }
    /// The next byte, or -1 at the end.
    int next();

  private:
    void fill();

    const char* data_ = nullptr;
    std::size_t at_ = 0;
    std::size_t size_ = 0;           ///< of the window
    std::uint64_t windowBegin_ = 0;  ///< in the file
    std::uint64_t end_ = 0;          ///< in the file
    bool cut_ = false;
    InputFile* file_ = nullptr;
    std::vector<char> window_;
};

}  // namespace Ovr::Formats::Laz
