// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Chunks of compressed LAS against bytes that were worked out elsewhere.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "las/laz/Chunk.h"
#include "support/LasBytes.h"
#include "support/LazRecords.h"
#include "support/Sha256.h"

namespace {

using namespace Ovr::Formats::Laz;
using Support::fromHex;
using Support::sha256;

Schema schemaOf(unsigned format, std::size_t length, std::uint16_t version) {
    Schema schema = schemaFor(format, length);
    for (Item& item : schema.items) {
        item.version = item.type == ItemType::WavePacket13 ? 1 : version;
    }
    return schema;
}

/// Decodes as many records at once as asked for.
std::string decoded(const Schema& schema, const std::string& chunk, std::size_t count,
                    std::size_t atOnce) {
    const ChunkBytes bytes{nullptr, chunk, 0, chunk.size()};
    ChunkDecoder decoder(schema, bytes, count);
    std::string records(count * schema.recordLength, '\0');
    for (std::size_t at = 0; at < records.size(); at += atOnce * schema.recordLength) {
        const std::size_t size = std::min(records.size() - at, atOnce * schema.recordLength);
        EXPECT_EQ(decoder.decode(std::span(records).subspan(at, size)), size / schema.recordLength);
    }
    decoder.expectEnd();
    EXPECT_EQ(decoder.damage().found, "");
    EXPECT_EQ(decoder.end(), chunk.size());
    return records;
}

TEST(LazChunk, WritesAndReadsSmallChunksThatWereWorkedOutElsewhere) {
    const std::string first1 = "e803000030f8fffff40100002c010902fd0011000000000000005940";
    const std::string three1 = first1 +
                               "f203000029f8fffff50100005e010902fd0111000000000000105940"
                               "fc03000022f8fffff801000090011202fd0211000000000000205940";
    const std::string first7 =
        "e803000030f8fffff40100002c0111000200000000000000000000005940e803e8038403";
    const std::string three7 =
        first7 +
        "f203000029f8fffff50100005e0111200200000000000000000000105940e90314058403"
        "fc03000022f8fffff8010000900122000200000000000000000000205940ea0340068403";
    const std::string chunk7 =
        first7 +
        "03000000 0b000000 05000000 00000000 00000000 06000000 00000000 00000000 00000000"
        "10000000 0b000000 a0c1c69484 88210c000000 0433000000 65fbb1000000"
        "475d1bb29000 0804fb967400 00800000";
    const std::string still = std::string(60, '0') + "010002000300";
    const struct {
        const char* name;
        unsigned format;
        std::uint16_t version;
        std::string records;
        std::string chunk;
    } cases[] = {
        {"format 1", 1, 2, three1,
         first1 + "4a46bc8b46d45f1aab4267b800037beadeddfe8bc87fd6fc8ea00001000000"},
        {"one point", 1, 2, first1, first1 + "01000000"},
        {"channels", 7, 3, three7, chunk7 + "9a02086fb2b7aad9000000"},
        {"channels, mended", 7, 4, three7, chunk7 + "9a02086fb2bc55b6000000"},
        {"colour that stays", 7, 3, still + still,
         still + "02000000 06000000 04000000 00000000 00000000 00000000 00000000 00000000 00000000"
                 "00000000 04000000 000001000000 01000000 807f0000"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string records = fromHex(c.records);
        const std::string chunk = fromHex(c.chunk);
        const std::size_t length = c.format == 1 ? 28 : 36;
        const Schema schema = schemaOf(c.format, length, c.version);
        EXPECT_EQ(encodeChunk(schema, records), chunk);
        EXPECT_EQ(decoded(schema, chunk, records.size() / length, 2), records);
    }
}

TEST(LazChunk, FollowsEveryRuleOfTheModels) {
    const struct {
        const char* name;
        unsigned format;
        std::size_t length;
        std::size_t timeAt;
        std::size_t colorAt;
        std::size_t count;
        bool masked;
        std::uint16_t version;
        const char* records;
        const char* chunk;
    } cases[] = {
        {"format 3", 3, 37, 20, 28, 3000, false, 2,
         "14ca14eb770a2a8526cc0589c744c4d954b9b4ce803abfa6447aca90363d74a5",
         "dd741dece90bd8a2c91fec328a2246534a3a2502f04e189020a8c038e47056c2"},
        {"format 3, old", 3, 37, 20, 28, 3000, false, 1,
         "14ca14eb770a2a8526cc0589c744c4d954b9b4ce803abfa6447aca90363d74a5",
         "aa37f94d1762bc4c7b0fb5c5c4f30a165e4c7ce6a4c0727c111d14f69a1b649f"},
        {"format 7", 7, 39, 22, 30, 3000, false, 3,
         "750c32573cf9cbdd28635cb4ac2b2c0237a03eb867401b598bbdb90dd94372c3",
         "da1745188098ba72292cda9e5751f1edaa59d1ce4fabbae678b7f071ddf36cd6"},
        {"format 7, mended", 7, 39, 22, 30, 3000, false, 4,
         "750c32573cf9cbdd28635cb4ac2b2c0237a03eb867401b598bbdb90dd94372c3",
         "b8a449f9b4e8f6ec26b14350fbd4022c1572b3f6e8ec65bab4d1c5d82fb6a8c7"},
        {"format 7, masked", 7, 39, 22, 30, 10000, true, 3,
         "907a1035d3ad10cda70d46135368c1d647ebec0d842e8ee4170251142ebc4183",
         "94dfe3676a6936bd67c2534f8b98dab9342bfd8898b7a4b2374b6fe1252412d6"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string records =
            Support::pseudoRandomRecords(c.count, c.length, c.timeAt, c.colorAt, c.masked);
        ASSERT_EQ(sha256(records), c.records);
        const Schema schema = schemaOf(c.format, c.length, c.version);
        const std::string chunk = encodeChunk(schema, records);
        EXPECT_EQ(sha256(chunk), c.chunk) << chunk.size();
        EXPECT_EQ(decoded(schema, chunk, c.count, 1000), records);
    }
}

TEST(LazChunk, BringsEveryFormatBack) {
    using Support::LasBytes;
    for (unsigned format = 0; format <= 10; ++format) {
        const std::uint16_t oldest = format < 6 ? 1 : 3;
        for (std::uint16_t version = oldest; version < oldest + 2; ++version) {
            for (const std::size_t extra : {0U, 2U}) {
                for (const std::size_t count : {1U, 2U, 1500U}) {
                    SCOPED_TRACE("format " + std::to_string(format) + " version " +
                                 std::to_string(version) + " points " + std::to_string(count));
                    const std::size_t length = LasBytes::kLength[format] + extra;
                    const std::string records =
                        Support::pseudoRandomRecords(count, length, LasBytes::kTimeAt[format],
                                                     LasBytes::kColorAt[format], count % 2 == 0);
                    const Schema schema = schemaOf(format, length, version);
                    EXPECT_TRUE(decoded(schema, encodeChunk(schema, records), count, 700) ==
                                records);
                }
            }
        }
    }
}

TEST(LazChunk, KeepsStepOverManyEqualPoints) {
    std::string walk(400000, '\0');
    Support::Congruential random;
    for (std::size_t at = 20; at < walk.size(); at += 20) {
        std::memcpy(walk.data() + at, walk.data() + at - 20, 20);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            Support::poke(
                walk, at + 4 * axis,
                Support::peek<std::uint32_t>(walk, at + 4 * axis) + (random.next() >> 31));
        }
    }
    const struct {
        std::string records;
        std::size_t size;
        const char* chunk;
    } cases[] = {
        {walk, 10299, "3e39efed8949c0c56435af7d4f80ac20d266c79872cf47a0e19f601296cbe159"},
        {std::string(2000000, '\0'), 412,
         "8e7e7dafc058412d5a8d27c636c65b18ed3934f66e639cbf837244985a54f333"},
    };
    for (const auto& c : cases) {
        const Schema schema = schemaFor(0, 20);
        const std::string chunk = encodeChunk(schema, c.records);
        EXPECT_EQ(chunk.size(), c.size);
        EXPECT_EQ(sha256(chunk), c.chunk);
        EXPECT_TRUE(decoded(schema, chunk, c.records.size() / 20, 50000) == c.records);
    }
}

}  // namespace
