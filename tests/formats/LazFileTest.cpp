// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Files of compressed LAS: how their chunks are found and read, and what is refused.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "las/LasBlocks.h"
#include "las/LasDamage.h"
#include "las/LasRecordWriter.h"
#include "support/ExpectError.h"
#include "support/LasBytes.h"
#include "support/LazBytes.h"
#include "support/LazRecords.h"
#include "support/LoadedScan.h"
#include "support/TempFolder.h"

namespace {

using namespace Ovr::Formats;
using enum Ovr::Interfaces::ErrorCode;
using Support::expectError;
using Support::LasBytes;
using Support::LazBytes;
using Support::poke;
using Table = LazBytes::Table;

/// What reading a file gives.
struct Answer {
    std::string records;
    Ovr::ErrorPtr error;
    std::vector<std::string> warnings;
};

/// @param lenient  up to the first damage
Answer read(const std::filesystem::path& path, bool lenient = false) {
    Answer answer;
    InputFile file;
    LasHeader header;
    Ovr::Remarks remarks;
    answer.error = file.open(path);
    if (!answer.error) {
        answer.error = readLasHeader(file, header, remarks, lenient);
    }
    if (!answer.error && lenient) {
        answer.error = shortenToReadable(file, header, remarks, {});
    }
    answer.warnings = remarks.warnings();
    if (answer.error) {
        return answer;
    }
    const auto blocks = openLasBlocks(file, header, header.count);
    while (!answer.error && !blocks->atEnd()) {
        answer.error = blocks->next();
        if (blocks->records() != 0) {
            answer.records.append(blocks->record(0), blocks->records() * header.recordLength);
        }
    }
    return answer;
}

std::string randomRecords(unsigned format, std::size_t count) {
    return Support::pseudoRandomRecords(count, LasBytes::kLength[format], LasBytes::kTimeAt[format],
                                        0, true);
}

class LazFile : public testing::Test {
  protected:
    Support::TempFolder folder_;

    Answer answerTo(const std::string& bytes) { return read(folder_.write("walk.laz", bytes)); }
    Answer lenientAnswerTo(const std::string& bytes) {
        return read(folder_.write("walk.laz", bytes), true);
    }
};

TEST_F(LazFile, FindsItsChunksInEveryWay) {
    LazBytes fixed(1, randomRecords(1, 250));
    fixed.schema.chunkSize = 100;
    LazBytes layered(7, randomRecords(7, 250));
    layered.schema.chunkSize = 100;
    LazBytes stream = fixed;
    stream.schema.compressor = Laz::Compressor::Stream;
    LazBytes varying = fixed;
    varying.schema.chunkSize = Laz::Schema::VARYING;
    varying.varying = {1, 130, 119};
    LazBytes zero = varying;
    zero.schema.chunkSize = 0;
    LazBytes layeredVarying = layered;
    layeredVarying.schema.chunkSize = Laz::Schema::VARYING;
    layeredVarying.varying = varying.varying;
    LazBytes prototype = layered;
    prototype.schema.items[0].version = 2;
    const auto with = [](LazBytes file, Table table, const std::string& extended = {}) {
        file.table = table;
        file.extended = extended;
        return file;
    };
    const std::string record(60, '\0');  // an extended one without data
    const struct {
        const char* name;
        LazBytes file;
        bool warns = false;
    } cases[] = {
        {"fixed", fixed},
        {"layered", layered},
        {"one stream", stream},
        {"varying", varying},
        {"varying, written as 0", zero},
        {"layered, varying, extended records", with(layeredVarying, Table::InPlace, record)},
        {"version 2 of a layered item", prototype},
        {"fixed, place at the end", with(fixed, Table::AtTheEnd)},
        {"varying, place at the end", with(varying, Table::AtTheEnd)},
        {"layered, place before extended records", with(layered, Table::AtTheEnd, record)},
        {"fixed, no table", with(fixed, Table::Missing), true},
        {"layered, no table", with(layered, Table::Missing), true},
        {"layered, varying, no table", with(layeredVarying, Table::Missing, record), true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Answer answer = answerTo(c.file.bytes());
        EXPECT_FALSE(answer.error) << answer.error->message();
        EXPECT_TRUE(answer.records == c.file.records);
        EXPECT_EQ(answer.warnings.size(), c.warns ? 1U : 0U);
    }
}

TEST_F(LazFile, RefusesByNameWhatItCannotRead) {
    constexpr std::size_t kPayload = 227 + 54;
    const auto set = [](std::size_t at, auto value) {
        return [=](std::string& bytes) { poke(bytes, at, value); };
    };
    const struct {
        std::function<void(std::string&)> damage;
        Ovr::Interfaces::ErrorCode code;
        const char* message;
    } cases[] = {
        {[](std::string& b) {
             b[104] = 1;
             poke(b, 107, std::uint32_t{1});
         },
         InvalidValue,
         "byte 281: found a record on the compression of points that are not compressed"},
        {set(kPayload, '\0'), Unsupported,
         "byte 281: found compressor 0, expected 1 or 2 for point format 1"},
        {set(kPayload, '\x03'), Unsupported, "found compressor 3"},
        {set(kPayload + 2, '\x01'), Unsupported, "byte 283: found entropy coder 1, expected 0"},
        {set(kPayload + 32, '\x03'), InvalidValue,
         "byte 313: found 3 compressed items in a record of 46 bytes, expected 2"},
        {set(kPayload + 34, '\x0A'), InvalidValue,
         "byte 315: found a compressed item of type 10 and 20 bytes, expected type 6 and 20 bytes"},
        {set(kPayload + 38, '\x03'), Unsupported,
         "byte 319: found version 3 of the compressed item type 6, expected 1 to 2"},
        {set(107, std::uint32_t{150}), InvalidValue,
         "byte 327: found 3 chunks, expected 2 for the 150 points of the header"},
        {set(107, std::uint32_t{0xFFFFFFFF}), Truncated, "byte 107: found a count of 4294967295"},
    };
    LazBytes file(1, randomRecords(1, 250));
    file.schema.chunkSize = 100;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.message);
        std::string bytes = file.bytes();
        c.damage(bytes);
        expectError(answerTo(bytes).error, c.code, c.message);
    }
    file.schema.chunkSize = Laz::Schema::VARYING;
    file.varying = {100, 150};
    file.table = Table::Missing;
    expectError(answerTo(file.bytes()).error, Unsupported,
                "byte 327: found no chunk table (it is named nowhere), expected one");
    LazBytes layered(6, randomRecords(6, 5));
    layered.schema.compressor = Laz::Compressor::Chunks;
    expectError(answerTo(layered.bytes()).error, Unsupported,
                "found compressor 2, expected 3 for point format 6");
}

TEST_F(LazFile, ReportsTheFirstDamageInTheOrderOfTheFile) {
    for (const unsigned format : {1U, 7U}) {
        LazBytes file(format, randomRecords(format, 1000));
        file.schema.chunkSize = 100;
        std::string bytes = file.bytes();
        std::size_t place = file.pointsAt() + 8;
        std::vector<std::size_t> streams;
        for (std::size_t i = 0; i < 10; ++i) {
            const std::size_t length = file.schema.recordLength;
            streams.push_back(place + length + (format == 1 ? 0 : 4 + 4 * file.schema.layers()));
            place += Laz::encodeChunk(
                         file.schema,
                         std::string_view(file.records).substr(i * 100 * length, 100 * length))
                         .size();
        }
        for (const std::size_t chunk : {9U, 3U, 7U}) {
            poke(bytes, streams[chunk], 0xFFFFFFFFU);
        }
        const Answer answer = answerTo(bytes);
        expectError(answer.error, InvalidValue,
                    "walk.laz: chunk 3, point 301, byte " + std::to_string(streams[3] + 4) +
                        ": found a stream that begins with FF FF FF FF");
        const std::string before = file.records.substr(0, 301 * file.schema.recordLength);
        EXPECT_TRUE(answer.records == before);
        const Answer lenient = lenientAnswerTo(bytes);
        EXPECT_FALSE(lenient.error) << lenient.error->message();
        EXPECT_TRUE(lenient.records == before);
        ASSERT_FALSE(lenient.warnings.empty());
        EXPECT_NE(lenient.warnings.back().find("of 1000 points the 301 before it are read"),
                  std::string::npos);
    }
}

TEST_F(LazFile, TellsOfLayersAndStreamsThatAreLongerOrShorterThanTheirChunk) {
    LazBytes layered(7, randomRecords(7, 20));
    LazBytes stream(3, randomRecords(3, 20));
    stream.schema.compressor = Laz::Compressor::Stream;
    const std::size_t layers = layered.pointsAt() + 8 + layered.schema.recordLength + 4;
    const std::size_t lastLayer = layers + 4 * (layered.schema.layers() - 1);
    const auto resized = [&](std::size_t layer, std::uint32_t by) {
        std::string bytes = layered.bytes();
        poke(bytes, layer, Support::peek<std::uint32_t>(bytes, layer) + by);
        return bytes;
    };
    const struct {
        std::string bytes;
        const char* found;
        std::size_t right = 20;
        std::string* records;
    } cases[] = {
        {resized(lastLayer, 1), "found the end of the chunk, expected a layer that ends in it", 20,
         &layered.records},
        {resized(lastLayer, 0xFFFFFFFFU), "", 19, &layered.records},
        {stream.bytes() + "x", "found bytes that are left over", 20, &stream.records},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.found);
        expectError(answerTo(c.bytes).error, InvalidValue, c.found);
        const Answer lenient = lenientAnswerTo(c.bytes);
        EXPECT_FALSE(lenient.error) << lenient.error->message();
        EXPECT_TRUE(c.records->starts_with(lenient.records));
        EXPECT_GE(lenient.records.size(), c.right * c.records->size() / 20);
    }
}

TEST_F(LazFile, GivesTheLayersBeforeAChunkThatCannotBeWithoutATable) {
    LazBytes file(7, randomRecords(7, 250));
    file.schema.chunkSize = 100;
    file.table = Table::Missing;
    const std::size_t length = file.schema.recordLength;
    const std::string first =
        Laz::encodeChunk(file.schema, std::string_view(file.records).substr(0, 100 * length));
    const std::size_t second = file.pointsAt() + 8 + first.size();
    std::string shorter = file.bytes();
    poke(shorter, second + length, std::uint32_t{99});
    expectError(answerTo(shorter).error, InvalidValue,
                "chunk 1, point 100, byte " + std::to_string(second + length) +
                    ": found a chunk of 99 points");
    for (const std::string& bytes : {shorter, file.bytes().substr(0, second + 5)}) {
        const Answer lenient = lenientAnswerTo(bytes);
        EXPECT_FALSE(lenient.error) << lenient.error->message();
        EXPECT_TRUE(lenient.records == file.records.substr(0, 100 * length));
    }
}

TEST_F(LazFile, GivesThePointsBeforeTheEndOfATruncatedFile) {
    for (const auto& [format, oneStream] : {std::pair{3U, false}, {3U, true}, {10U, false}}) {
        LazBytes file(format, randomRecords(format, 25));
        file.schema.chunkSize = 10;
        if (oneStream) {
            file.schema.compressor = Laz::Compressor::Stream;
        }
        const std::string bytes = file.bytes();
        for (std::size_t size = file.pointsAt(); size < bytes.size(); size += 11) {
            SCOPED_TRACE(std::to_string(format) + " cut to " + std::to_string(size));
            const Answer answer = answerTo(bytes.substr(0, size));
            EXPECT_TRUE(file.records.starts_with(answer.records));
            // Without its table, or a part of it, a file is whole all the same.
            EXPECT_TRUE(answer.error || answer.records == file.records);
            EXPECT_TRUE(answer.error || !answer.warnings.empty());
            const Answer lenient = lenientAnswerTo(bytes.substr(0, size));
            EXPECT_TRUE(!lenient.error || answer.records.empty()) << lenient.error->message();
            EXPECT_TRUE(file.records.starts_with(lenient.records));
            EXPECT_GE(lenient.records.size(), answer.records.size());
        }
    }
}

TEST_F(LazFile, NeverTrustsAByte) {
    for (const unsigned format : {5U, 10U}) {
        LazBytes file(format, randomRecords(format, 12));
        file.schema.chunkSize = 5;
        const std::string bytes = file.bytes();
        for (std::size_t at = 0; at < bytes.size(); at += 5) {
            std::string damaged = bytes;
            damaged[at] = static_cast<char>(~static_cast<unsigned char>(damaged[at]));
            EXPECT_LE(answerTo(damaged).records.size(), 100000U) << "byte " << at;
        }
    }
}

TEST_F(LazFile, IsWrittenAsItWasRead) {
    for (const std::size_t count : {0U, 1U, 49999U, 50000U, 50001U, 150000U}) {
        SCOPED_TRACE(count);
        LasBytes plain;
        plain.minor = 4;
        plain.format = 6;
        plain.vlrCount = 1;
        plain.vlrs = std::string(54, '\7');
        poke(plain.vlrs, 20, std::uint16_t{0});
        plain.vlrs += "user bytes";
        std::string header = plain.bytes().substr(0, 375);
        poke(header, 247, static_cast<std::uint64_t>(count));
        poke(header, 235, std::uint64_t{99});
        poke(header, 243, std::uint32_t{1});
        const std::string records(Support::pseudoRandomRecords(count, 30, 22, 0, true));
        constexpr std::size_t kPiece = 210030;  // 7001 records
        LasRecordWriter writer;
        const auto path = folder_.path() / "out.laz";
        ASSERT_FALSE(writer.open(path, Existing::Replace, header, plain.vlrs, true));
        for (std::size_t at = 0; at < records.size(); at += kPiece) {
            ASSERT_FALSE(writer.write(std::string_view(records).substr(at, kPiece)));
        }
        ASSERT_FALSE(writer.writeRest("extended"));
        ASSERT_FALSE(writer.finish(header, 99));
        const Answer answer = read(path);
        EXPECT_FALSE(answer.error) << answer.error->message();
        EXPECT_TRUE(answer.records == records);
        const std::string bytes = Support::TempFolder::read(path);
        EXPECT_EQ(bytes[104], '\x86');
        const auto points = Support::peek<std::uint32_t>(bytes, 96);
        EXPECT_EQ(points, 375 + 54 + 40 + plain.vlrs.size());
        EXPECT_EQ(Support::peek<std::uint32_t>(bytes, 100), 2U);
        EXPECT_EQ(bytes.substr(points - plain.vlrs.size(), plain.vlrs.size()), plain.vlrs);
        EXPECT_EQ(bytes.substr(Support::peek<std::uint64_t>(bytes, 235)), "extended");
        const auto table = Support::peek<std::uint64_t>(bytes, points);
        EXPECT_EQ(Support::peek<std::uint32_t>(bytes, table + 4), (count + 49999) / 50000);
    }
}

TEST_F(LazFile, ComesInAsAScanUnderAnyName) {
    LasBytes plain;
    plain.format = 3;
    for (std::int32_t i = 0; i < 500; ++i) {
        plain.points.push_back({{i, 2 * i, 3 * i}, 7, 1e5 + i, {1, 2, 300}});
    }
    LazBytes file(3, plain.bytes().substr(227));
    file.schema.chunkSize = 50;
    std::string bytes = file.bytes();
    for (std::size_t axis = 0; axis < 3; ++axis) {
        poke(bytes, 131 + 8 * axis, 0.01);
    }
    for (const char* name : {"walk.las", "walk.laz", "walk.ptx"}) {
        Ovr::ScanSource source;
        source.file = folder_.write(name, bytes);
        source.project = std::make_shared<Ovr::ScanProject>();
        Support::MobileScan scan(source);
        const auto watch = std::make_shared<Support::CountingWatch>();
        scan.memory.source.progress = watch;
        ASSERT_FALSE(scan.loadPoints());
        ASSERT_FALSE(scan.loadTimes());
        EXPECT_EQ(scan.memory.cols, 500);
        EXPECT_EQ(scan.memory.at(0, 499).point.z, 14.97F);
        EXPECT_EQ(scan.memory.at(0, 499).point.color[2], 1);
        EXPECT_EQ(scan.times->times[499], 499000000U);
        EXPECT_EQ(watch->last, 1.0);
        EXPECT_GE(watch->told, 5);
        scan.memory.source.cancel = std::make_shared<Support::CountingWatch>(2);
        expectError(scan.loadPoints(), Cancelled, "cancelled");
    }
}

}  // namespace
