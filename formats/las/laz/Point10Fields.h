// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>

#include "kit/LittleEndian.h"

namespace Ovr::Formats::Laz {

/// The fields that every record of formats 0 to 5 begins with.
struct Point10Fields {
    static constexpr std::size_t SIZE = 20;  ///< [bytes]

    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t z = 0;
    std::uint16_t intensity = 0;
    std::uint8_t returns = 0;  ///< number, number of the pulse's, scan direction, edge
    std::uint8_t classification = 0;
    std::uint8_t angle = 0;
    std::uint8_t user = 0;
    std::uint16_t source = 0;

    unsigned returnNumber() const { return returns & 7U; }
    unsigned returnCount() const { return returns >> 3U & 7U; }
    unsigned scanDirection() const { return returns >> 6U & 1U; }
    /// How far apart the return number and the number of returns are.
    unsigned level() const {
        return returnCount() > returnNumber() ? returnCount() - returnNumber()
                                              : returnNumber() - returnCount();
    }

    static Point10Fields load(const char* bytes) {
        return {loadLittle<std::int32_t>(bytes),      loadLittle<std::int32_t>(bytes + 4),
                loadLittle<std::int32_t>(bytes + 8),  loadLittle<std::uint16_t>(bytes + 12),
                loadLittle<std::uint8_t>(bytes + 14), loadLittle<std::uint8_t>(bytes + 15),
                loadLittle<std::uint8_t>(bytes + 16), loadLittle<std::uint8_t>(bytes + 17),
                loadLittle<std::uint16_t>(bytes + 18)};
    }
    void store(char* bytes) const {
        storeLittle(bytes, x);
        storeLittle(bytes + 4, y);
        storeLittle(bytes + 8, z);
        storeLittle(bytes + 12, intensity);
        storeLittle(bytes + 14, returns);
        storeLittle(bytes + 15, classification);
        storeLittle(bytes + 16, angle);
        storeLittle(bytes + 17, user);
        storeLittle(bytes + 18, source);
    }
};

}  // namespace Ovr::Formats::Laz
