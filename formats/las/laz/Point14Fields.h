// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "kit/LittleEndian.h"

namespace Ovr::Formats::Laz {

/// The fields that every record of formats 6 to 10 begins with.
struct Point14Fields {
    static constexpr std::size_t SIZE = 30;  ///< [bytes]

    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t z = 0;
    std::uint16_t intensity = 0;
    std::uint8_t returns = 0;  ///< number, number of the pulse's
    std::uint8_t bits = 0;     ///< classification flags, channel, scan direction, edge
    std::uint8_t classification = 0;
    std::uint8_t user = 0;
    std::uint16_t angle = 0;
    std::uint16_t source = 0;
    std::int64_t time = 0;  ///< bit pattern of a double

    unsigned returnNumber() const { return returns & 15U; }
    unsigned returnCount() const { return returns >> 4U; }
    void setReturns(unsigned number, unsigned count) {
        returns = static_cast<std::uint8_t>(count << 4U | number);
    }
    unsigned channel() const { return bits >> 4U & 3U; }
    void setChannel(unsigned channel) {
        bits = static_cast<std::uint8_t>((bits & ~0x30U) | channel << 4U);
    }
    /// Classification flags, scan direction and edge.
    unsigned flags() const { return (bits & 15U) | (unsigned{bits} >> 6U) << 4U; }
    void setFlags(unsigned flags) {
        bits = static_cast<std::uint8_t>((bits & 0x30U) | (flags & 15U) | (flags >> 4U) << 6U);
    }
    /// How far apart the return number and the number of returns are, up to 7.
    unsigned level() const {
        const unsigned n = returnCount();
        const unsigned r = returnNumber();
        return std::min(7U, n > r ? n - r : r - n);
    }
    /// Which of 6 kinds of return this is.
    unsigned kind() const { return KINDS[returnCount()][returnNumber()]; }

    static Point14Fields load(const char* bytes) {
        return {loadLittle<std::int32_t>(bytes),       loadLittle<std::int32_t>(bytes + 4),
                loadLittle<std::int32_t>(bytes + 8),   loadLittle<std::uint16_t>(bytes + 12),
                loadLittle<std::uint8_t>(bytes + 14),  loadLittle<std::uint8_t>(bytes + 15),
                loadLittle<std::uint8_t>(bytes + 16),  loadLittle<std::uint8_t>(bytes + 17),
                loadLittle<std::uint16_t>(bytes + 18), loadLittle<std::uint16_t>(bytes + 20),
                loadLittle<std::int64_t>(bytes + 22)};
    }
    void store(char* bytes) const {
        storeLittle(bytes, x);
        storeLittle(bytes + 4, y);
        storeLittle(bytes + 8, z);
        storeLittle(bytes + 12, intensity);
        storeLittle(bytes + 14, returns);
        storeLittle(bytes + 15, bits);
        storeLittle(bytes + 16, classification);
        storeLittle(bytes + 17, user);
        storeLittle(bytes + 18, angle);
        storeLittle(bytes + 20, source);
        storeLittle(bytes + 22, time);
    }

  private:
    static constexpr std::array<std::array<std::uint8_t, 16>, 16> KINDS{{
        {0, 1, 2, 3, 4, 5, 3, 4, 4, 5, 5, 5, 5, 5, 5, 5},
        {1, 0, 1, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3},
        {2, 1, 2, 4, 4, 4, 4, 4, 4, 4, 4, 3, 3, 3, 3, 3},
        {3, 3, 4, 5, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4},
        {4, 3, 4, 4, 5, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4},
        {5, 3, 4, 4, 4, 5, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4},
        {3, 3, 4, 4, 4, 4, 5, 4, 4, 4, 4, 4, 4, 4, 4, 4},
        {4, 3, 4, 4, 4, 4, 4, 5, 4, 4, 4, 4, 4, 4, 4, 4},
        {4, 3, 4, 4, 4, 4, 4, 4, 5, 4, 4, 4, 4, 4, 4, 4},
        {5, 3, 4, 4, 4, 4, 4, 4, 4, 5, 4, 4, 4, 4, 4, 4},
        {5, 3, 4, 4, 4, 4, 4, 4, 4, 4, 5, 4, 4, 4, 4, 4},
        {5, 3, 3, 4, 4, 4, 4, 4, 4, 4, 4, 5, 5, 4, 4, 4},
        {5, 3, 3, 4, 4, 4, 4, 4, 4, 4, 4, 5, 5, 5, 4, 4},
        {5, 3, 3, 4, 4, 4, 4, 4, 4, 4, 4, 4, 5, 5, 5, 4},
        {5, 3, 3, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 5, 5, 5},
        {5, 3, 3, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 5, 5},
    }};
};

}  // namespace Ovr::Formats::Laz
