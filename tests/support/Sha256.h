// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

namespace Support {

/// SHA-256 of some bytes, in hexadecimal digits.
inline std::string sha256(std::string_view bytes) {
    // The first 32 bits of the fractional parts of roots of the first primes.
    static const auto roots = [] {
        std::array<std::array<std::uint32_t, 64>, 2> made{};
        for (unsigned n = 2, found = 0; found < 64; ++n) {
            bool isPrime = true;
            for (unsigned d = 2; d * d <= n; ++d) {
                isPrime = isPrime && n % d != 0;
            }
            if (isPrime) {
                const long double pair[] = {std::sqrt(static_cast<long double>(n)),
                                            std::cbrt(static_cast<long double>(n))};
                for (std::size_t i = 0; i < 2; ++i) {
                    made[i][found] =
                        static_cast<std::uint32_t>(std::ldexp(pair[i] - std::floor(pair[i]), 32));
                }
                ++found;
            }
        }
        return made;
    }();
    std::string message(bytes);
    message += '\x80';
    message.resize((message.size() + 8 + 63) / 64 * 64 - 8);
    for (int shift = 56; shift >= 0; shift -= 8) {
        message += static_cast<char>(std::uint64_t{bytes.size()} * 8 >> shift);
    }
    std::array<std::uint32_t, 8> state{};
    std::copy_n(roots[0].begin(), 8, state.begin());
    for (std::size_t block = 0; block < message.size(); block += 64) {
        std::array<std::uint32_t, 64> w{};
        for (std::size_t i = 0; i < 64; ++i) {
            w[i / 4] = w[i / 4] << 8 | static_cast<unsigned char>(message[block + i]);
        }
        for (std::size_t i = 16; i < 64; ++i) {
            const std::uint32_t a = w[i - 15];
            const std::uint32_t b = w[i - 2];
            w[i] = w[i - 16] + w[i - 7] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ a >> 3) +
                   (std::rotr(b, 17) ^ std::rotr(b, 19) ^ b >> 10);
        }
        auto s = state;
        for (std::size_t i = 0; i < 64; ++i) {
            const std::uint32_t t =
                s[7] + roots[1][i] + w[i] + ((s[4] & s[5]) ^ (~s[4] & s[6])) +
                (std::rotr(s[4], 6) ^ std::rotr(s[4], 11) ^ std::rotr(s[4], 25));
            const std::uint32_t u =
                ((s[0] & s[1]) ^ (s[0] & s[2]) ^ (s[1] & s[2])) +
                (std::rotr(s[0], 2) ^ std::rotr(s[0], 13) ^ std::rotr(s[0], 22));
            s = {t + u, s[0], s[1], s[2], s[3] + t, s[4], s[5], s[6]};
        }
        for (std::size_t i = 0; i < 8; ++i) {
            state[i] += s[i];
        }
    }
    std::string text;
    for (const std::uint32_t word : state) {
        for (int shift = 28; shift >= 0; shift -= 4) {
            text += "0123456789abcdef"[word >> shift & 15];
        }
    }
    return text;
}

}  // namespace Support
