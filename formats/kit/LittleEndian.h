// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace Ovr::Formats {

/// The unsigned integer that takes as many bytes as @p T.
template <typename T>
using BitsOf = std::conditional_t<
    sizeof(T) == 8, std::uint64_t,
    std::conditional_t<sizeof(T) == 4, std::uint32_t,
                       std::conditional_t<sizeof(T) == 2, std::uint16_t, std::uint8_t>>>;

/// Reads an integer or a floating-point number at any alignment. Requires: sizeof(T) bytes there.
template <typename T>
requires std::integral<T> || std::floating_point<T> T loadLittle(const char* bytes) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        bits |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8U * i);
    }
    return std::bit_cast<T>(static_cast<BitsOf<T>>(bits));
}

/// Writes likewise.
template <typename T>
requires std::integral<T> || std::floating_point<T>
void storeLittle(char* bytes, T value) {
    const std::uint64_t bits = std::bit_cast<BitsOf<T>>(value);
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        bytes[i] = static_cast<char>(static_cast<unsigned char>(bits >> (8U * i)));
    }
}

}  // namespace Ovr::Formats
