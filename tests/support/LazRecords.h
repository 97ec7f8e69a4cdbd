// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

namespace Support {

/// Bytes from hexadecimal digits; blanks do not count.
inline std::string fromHex(const std::string& text) {
    std::string digits;
    for (const char c : text) {
        if (c != ' ') {
            digits += c;
        }
    }
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    }
    return bytes;
}

/// x -> 1664525 x + 1013904223.
struct Congruential {
    std::uint32_t x = 12345;
    std::uint32_t next() { return x = x * 1664525U + 1013904223U; }
};

/// Records whose fields change and stay at random and whose times follow every rule of the time
/// sequences.
/// @param length  of a record
/// @param timeAt  where its time stands
/// @param colorAt where its colour stands
/// @param masked  with fewer kinds of returns, channels, classes and users
inline std::string pseudoRandomRecords(std::size_t count, std::size_t length, std::size_t timeAt,
                                       std::size_t colorAt, bool masked) {
    constexpr std::array<std::int64_t, 20> kSteps{1,  1,   1,   1,   2,   3,  9,  10, 30,  49,
                                                  50, 200, 499, 500, 600, -1, -5, -9, -10, 0};
    constexpr std::array<unsigned char, 4> kMasks{0x33, 0xD1, 0x21, 0x85};
    Congruential random;
    std::string all;
    std::string record(length, '\0');
    std::uint64_t t = 0;
    std::array<std::uint64_t, 3> old{};
    std::uint64_t d = 1000;
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t k = 0; k < length; ++k) {
            const std::uint32_t y = random.next();
            if (i == 0) {
                record[k] = static_cast<char>(y >> 24);
            } else if (y < 0x40000000U) {
                record[k] = static_cast<char>(y >> 16);
            }
            if (masked && k >= 14 && k < 18) {
                record[k] = static_cast<char>(record[k] & kMasks[k - 14]);
            }
        }
        std::uint32_t y = random.next();
        const std::uint32_t w = y >> 27;
        if (i == 0) {
            t = 0x41B0000000000000U;
        } else if (w < 20) {
            t += d * static_cast<std::uint64_t>(kSteps[w]) + (y >> 8 & 3) - 1;
        } else if (w == 25) {
            d = y >> 8 & 0xFFFFF;
            t += d;
        } else if (w > 25 && w < 29) {
            t += static_cast<std::uint64_t>(std::int64_t{static_cast<std::int32_t>(y)} * 64);
        } else if (w > 28) {
            std::swap(t, old[w - 29]);
        }
        std::memcpy(record.data() + timeAt, &t, sizeof t);
        y = random.next();
        if (y < 0x40000000U) {
            std::memcpy(record.data() + colorAt + 2, record.data() + colorAt, 2);
            std::memcpy(record.data() + colorAt + 4, record.data() + colorAt, 2);
        }
        all += record;
    }
    return all;
}

}  // namespace Support
