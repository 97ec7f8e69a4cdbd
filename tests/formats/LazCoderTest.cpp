// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// The coder of compressed LAS against streams that were worked out elsewhere.

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "las/laz/Decoder.h"
#include "las/laz/DifferenceCoder.h"
#include "las/laz/Encoder.h"
#include "las/laz/Median.h"
#include "support/LazRecords.h"

namespace {

using namespace Ovr::Formats::Laz;
using Support::fromHex;

/// Codes the values of a case; a decoder gives them, an encoder takes them.
template <class Coder>
using Steps = std::function<void(Coder&, std::vector<std::uint64_t>&)>;

template <class Coder>
void fourSymbols(Coder& coder, std::vector<std::uint64_t>& values) {
    SymbolModel model(4);
    for (auto& value : values) {
        value = coder.symbol(model, static_cast<unsigned>(value));
    }
    EXPECT_EQ(model.below(1), 10922U);
    EXPECT_EQ(model.below(2), 18204U);
    EXPECT_EQ(model.below(3), 25486U);
    EXPECT_EQ(model.cycle(), 6U);
    EXPECT_EQ(model.left(), 1U);
}

template <class Coder>
void manySymbols(Coder& coder, std::vector<std::uint64_t>& values) {
    SymbolModel model(256);
    for (auto& value : values) {
        value = coder.symbol(model, static_cast<unsigned>(value));
    }
    EXPECT_EQ(model.below(128), 7180U);
    EXPECT_EQ(model.below(255), 14186U);
}

template <class Coder>
void bits(Coder& coder, std::vector<std::uint64_t>& values) {
    BitModel model;
    for (auto& value : values) {
        value = coder.bit(model, static_cast<unsigned>(value));
    }
    EXPECT_EQ(model.zeroShare(), 5213U);
}

template <class Coder>
void rawValues(Coder& coder, std::vector<std::uint64_t>& values) {
    const unsigned widths[] = {8, 19, 23, 32, 32, 32};
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = coder.raw(widths[i], static_cast<std::uint32_t>(values[i]));
    }
}

template <class Coder>
void carries(Coder& coder, std::vector<std::uint64_t>& values) {
    SymbolModel model(4);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto value = static_cast<unsigned>(values[i]);
        values[i] = i < 3 ? coder.raw(16, value) : coder.symbol(model, value);
    }
}

template <class Coder>
void differences32(Coder& coder, std::vector<std::uint64_t>& values) {
    // The context comes from the value, which a decoder does not have yet.
    const unsigned contexts[] = {0, 1, 1, 0, 0, 0, 0, 0, 1, 1};
    DifferenceCoder<32> model(2);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto value = static_cast<std::int32_t>(values[i]);
        values[i] = static_cast<std::uint32_t>(model.code(coder, 0, value, contexts[i]));
    }
}

template <class Coder>
void differences16(Coder& coder, std::vector<std::uint64_t>& values) {
    DifferenceCoder<16> model;
    std::int32_t last = 0;
    for (auto& value : values) {
        last = model.code(coder, last, static_cast<std::int32_t>(value));
        value = static_cast<std::uint64_t>(last);
    }
}

template <class Coder>
void tableEntries(Coder& coder, std::vector<std::uint64_t>& values) {
    DifferenceCoder<32> model(2);
    std::int32_t last[2] = {0, 0};
    for (std::size_t i = 0; i < values.size(); ++i) {
        std::int32_t& part = last[i % 2];
        part = model.code(coder, part, static_cast<std::int32_t>(values[i]), i % 2);
        values[i] = static_cast<std::uint64_t>(part);
    }
}

std::vector<std::uint64_t> wrapped(std::initializer_list<std::int64_t> values) {
    std::vector<std::uint64_t> result;
    for (const std::int64_t value : values) {
        result.push_back(static_cast<std::uint32_t>(value));
    }
    return result;
}

TEST(LazCoder, WritesAndReadsStreamsThatWereWorkedOutElsewhere) {
    std::vector<std::uint64_t> many(600, 255);
    for (std::size_t i = 0; i < many.size(); i += 7) {
        many[i] = i % 256;
    }
    std::vector<std::uint64_t> carry(43, 3);
    carry[0] = carry[1] = carry[2] = 0xFFFF;
    const struct {
        const char* name;
        std::vector<std::uint64_t> values;
        Steps<Encoder> encode;
        Steps<Decoder> decode;
        const char* bytes;  // how it begins, of a long one
        std::size_t size = 0;
    } cases[] = {
        {"4 symbols",
         {0, 1, 2, 3, 0, 0, 3, 3, 1, 0},
         fourSymbols<Encoder>,
         fourSymbols<Decoder>,
         "1b 13 e2 00 00 00"},
        {"256 symbols", many, manySymbols<Encoder>, manySymbols<Decoder>,
         "00 ff ff 7f ff ff ff 08 00 7b", 273},
        {"bits", {0, 1, 1, 0, 0, 0, 0, 1, 0, 0}, bits<Encoder>, bits<Decoder>, "61 00 00 00 00"},
        {"raw values",
         {0xA5, 0x7FFFF, 0x123456, 0xDEADBEEF, 0x89ABCDEF, 0x01234567},
         rawValues<Encoder>,
         rawValues<Decoder>,
         "a5 ff f7 41 8b 90 59 96 79 cb b6 20 46 8b be 03 35 7a be 00 00 00"},
        {"carry", carry, carries<Encoder>, carries<Decoder>, "ff fe ff ff ff ff ff ff e9 00 00 00"},
        {"differences of 32 bits",
         wrapped({0, 1, -1, 2, 100, -300, 70000, -2147483648LL, 2147483647, 5}),
         differences32<Encoder>, differences32<Decoder>,
         "00 0f 79 39 9c 7b 4b 93 be d3 cf 77 07 ce d3 b1 00 00 00"},
        {"differences of 16 bits",
         {0, 65535, 1, 32768, 0, 40000},
         differences16<Encoder>,
         differences16<Decoder>,
         "00 77 dc 37 93 03 97 b0 61 bf 00 00 00"},
        {"chunk table",
         {100, 4000, 250, 9000, 50, 3999},
         tableEntries<Encoder>,
         tableEntries<Decoder>,
         "3c 51 a7 44 ad 4b 18 42 a5 3b ee de 00 00 00"},
        {"nothing", {}, differences16<Encoder>, differences16<Decoder>, "01 00 00 00"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string expected = fromHex(c.bytes);
        Encoder encoder;
        auto values = c.values;
        c.encode(encoder, values);
        const auto stream = encoder.finish();
        const std::string bytes(stream.begin(), stream.end());
        EXPECT_EQ(bytes.substr(0, expected.size()), expected);
        EXPECT_EQ(bytes.size(), c.size == 0 ? expected.size() : c.size);

        Damage damage;
        const ChunkBytes chunk{nullptr, bytes, 1000, 1000 + bytes.size()};
        Decoder decoder(ByteStream(chunk, 1000, chunk.end, 0), damage);
        std::vector<std::uint64_t> decoded(c.values.size());
        c.decode(decoder, decoded);
        decoder.expectEnd();
        EXPECT_EQ(decoded, c.values);
        EXPECT_EQ(damage.found, "");
        EXPECT_EQ(decoder.position(), chunk.end);
    }
}

TEST(LazCoder, KeepsTheMedianOfFive) {
    Median median;
    std::vector<std::int32_t> medians;
    for (const std::int32_t x : {5, -3, 8, 8, 1, 100, 7, -50, 2, 2, 9}) {
        median.add(x);
        medians.push_back(median.value());
    }
    EXPECT_EQ(medians, (std::vector<std::int32_t>{0, 0, 0, 0, 1, 8, 8, 7, 2, 2, 2}));
}

}  // namespace
