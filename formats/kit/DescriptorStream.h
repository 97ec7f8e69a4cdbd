// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <ostream>
#include <streambuf>
#include <vector>

namespace Ovr::Formats {

/// A stream into a file descriptor that keeps why a write failed: the file streams of the standard
/// library forget it. Seeks to places from the beginning, for a header that is written last.
class DescriptorStream final : public std::ostream {
  public:
    DescriptorStream();
    DescriptorStream(const DescriptorStream&) = delete;
    DescriptorStream& operator=(const DescriptorStream&) = delete;
    /// Closes the descriptor; what is in the buffer is lost.
    ~DescriptorStream() override;

    /// @param descriptor  to write to, owned from now on. Requires: called once.
    void attach(int descriptor);
    /// Writes what is in the buffer and brings the file to the disk, then closes it.
    /// @return 0, or the number (errno) of the first failure since attach()
    [[nodiscard]] int finish();
    /// The number (errno) of the first failed write; 0 while there was none.
    int firstFailure() const { return buffer_.failure; }

  private:
    struct Buffer final : std::streambuf {
        int_type overflow(int_type character) override;
        std::streamsize xsputn(const char* text, std::streamsize count) override;
        int sync() override;
        pos_type seekpos(pos_type place, std::ios_base::openmode which) override;
        bool write(const char* text, std::size_t count);
        bool empty();

        int descriptor = -1;
        int failure = 0;
        std::vector<char> space;
    };

    Buffer buffer_;
};

}  // namespace Ovr::Formats
