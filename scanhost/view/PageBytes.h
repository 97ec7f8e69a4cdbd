// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <concepts>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>

namespace ScanHost {

/// The numbers of a block of a page, little endian, as a browser's typed arrays read them.
class PageBytes {
  public:
    void reserve(std::size_t bytes) { bytes_.reserve(bytes); }

    template <std::integral Number>
    void add(Number number) {
        auto rest = static_cast<std::make_unsigned_t<Number>>(number);
        for (std::size_t i = 0; i < sizeof(Number); ++i) {
            bytes_ += static_cast<char>(rest & 0xFFU);
            rest = static_cast<std::make_unsigned_t<Number>>(std::uint64_t{rest} >> 8U);
        }
    }
    void add(double number);

    const std::string& bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

/// How many characters base64 makes of some bytes.
constexpr std::uint64_t base64Length(std::uint64_t bytes) {
    return (bytes + 2) / 3 * 4;
}

/// Writes bytes in base64 (RFC 4648, with padding, in one line).
void writeBase64(std::ostream& out, std::string_view bytes);

}  // namespace ScanHost
