// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstdint>

#include "las/laz/SymbolModel.h"

namespace Ovr::Formats::Laz {

// Sums, differences and products of 32 bits wrap.

constexpr std::int32_t wrappedSum(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
constexpr std::int32_t wrappedDifference(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}
constexpr std::int32_t wrappedProduct(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}
constexpr std::int64_t wrappedSum(std::int64_t a, std::int64_t b) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b));
}
constexpr std::int64_t wrappedDifference(std::int64_t a, std::int64_t b) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b));
}
constexpr bool fitsIn32Bits(std::int64_t value) {
    return value == static_cast<std::int32_t>(value);
}

constexpr std::uint8_t lowByte(std::uint16_t value) {
    return static_cast<std::uint8_t>(value);
}
constexpr std::uint8_t highByte(std::uint16_t value) {
    return static_cast<std::uint8_t>(value >> 8U);
}
constexpr std::uint16_t joinBytes(unsigned low, unsigned high) {
    return static_cast<std::uint16_t>(high << 8U | low);
}

/// Codes a byte as its difference to a prediction, modulo 256.
template <class Coder>
std::uint8_t codeByte(Coder& coder, SymbolModel& model, int prediction, int value) {
    const auto difference = static_cast<std::uint8_t>(value - prediction);
    return static_cast<std::uint8_t>(prediction +
                                     static_cast<int>(coder.symbol(model, difference)));
}

}  // namespace Ovr::Formats::Laz
