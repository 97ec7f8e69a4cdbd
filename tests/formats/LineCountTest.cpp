// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/LineCount.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>

#include "kit/TextLine.h"

namespace {

using Ovr::Formats::countLines;
using Ovr::Formats::LineCount;

/// Line by line, for a text of which all lines are ended and short.
LineCount countSlowly(const std::string& text, std::uint64_t most) {
    LineCount counted;
    while (counted.filled < most && counted.bytes < text.size()) {
        const std::size_t end = text.find('\n', counted.bytes) + 1;
        const std::string line = text.substr(counted.bytes, end - counted.bytes);
        counted.filled += line.find_first_not_of(" \t\r\n\v\f") == std::string::npos ? 0 : 1;
        counted.bytes = end;
        ++counted.lines;
    }
    return counted;
}

TEST(LineCount, AgreesWithAWalk) {
    std::mt19937 random(7);
    const std::string odd[] = {"",
                               " ",
                               "\r",
                               "\t \r",
                               " 1",
                               "\v",
                               std::string(5000, 'x'),
                               std::string(9000, ' '),
                               std::string(9000, ' ') + "1",
                               "\x01"};
    for (const unsigned rarity : {4U, 60U, 3000U}) {
        std::string text;
        while (text.size() < 200'000) {
            const bool isOdd = random() % rarity == 0;
            text += isOdd ? odd[random() % std::size(odd)] : std::string(random() % 60 + 1, '5');
            text += '\n';
        }
        const std::uint64_t all = countSlowly(text, ~std::uint64_t{0}).filled;
        for (const std::uint64_t most :
             {std::uint64_t{0}, std::uint64_t{1}, all / 3, all / 2, all - 1, all, all + 1}) {
            for (const char* rest : {"", "1", "  "}) {
                const LineCount expected = countSlowly(text, most);
                const LineCount counted = countLines(text + rest, most, false);
                EXPECT_EQ(counted.bytes, expected.bytes) << rarity << ' ' << most;
                EXPECT_EQ(counted.lines, expected.lines) << rarity << ' ' << most;
                EXPECT_EQ(counted.filled, expected.filled) << rarity << ' ' << most;
            }
        }
        EXPECT_EQ(countLines(text + "1", all + 2, true).filled, all + 1);
        EXPECT_EQ(countLines(text + " ", all + 2, true).bytes, text.size() + 1);
    }
}

}  // namespace
