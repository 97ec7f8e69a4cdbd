// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/TextFields.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

namespace {

using Ovr::Formats::parseNumber;

TEST(TextFields, ReadNumbersToTheLastBit) {
    std::mt19937 random(3);
    const auto digits = [&](unsigned most) {
        std::string text;
        for (auto count = random() % (most + 1); count != 0; --count) {
            text += static_cast<char>('0' + random() % 10);
        }
        return text;
    };
    for (int i = 0; i < 100'000; ++i) {
        const std::string text = std::string(i % 3 == 0 ? 1 : 0, '-') + digits(9) +
                                 (i % 5 == 0 ? "" : ".") + digits(i % 7 == 0 ? 19 : 8);
        if (text.find_first_of("0123456789") == std::string::npos) {
            continue;
        }
        double value = 0.0;
        ASSERT_TRUE(parseNumber(text, value)) << text;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(value),
                  std::bit_cast<std::uint64_t>(std::strtod(text.c_str(), nullptr)))
            << text;
    }
    for (const char* text :
         {"", "-", ".", "-.", "1.2.3", "--1", "+-1", "1-", "1 ", "0x1", "1e", "1e999"}) {
        double value = 7.0;
        EXPECT_FALSE(parseNumber(text, value)) << text;
        EXPECT_EQ(value, 7.0) << text;
    }
}

}  // namespace
