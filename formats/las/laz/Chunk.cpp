// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/Chunk.h"

#include <fmt/format.h>

#include <algorithm>

#include "kit/LittleEndian.h"
#include "las/laz/Encoder.h"
#include "las/laz/Point14.h"

namespace Ovr::Formats::Laz {

namespace {

constexpr std::size_t kWord = 4;        // a size or count in a chunk [bytes]
constexpr std::size_t kKeptLayers = 2;  // XY and Z are never left out
constexpr std::size_t kSmallestWindow = 256;

void appendWord(std::string& bytes, std::uint64_t value) {
    bytes.resize(bytes.size() + kWord);
    storeLittle(bytes.data() + bytes.size() - kWord, static_cast<std::uint32_t>(value));
}

}  // namespace

std::string encodeChunk(const Schema& schema, std::span<const char> records) {
    const std::size_t length = schema.recordLength;
    const auto coder = makeRecordCoder<Encoder>(schema);
    std::vector<Encoder> streams(schema.isLayered() ? schema.layers() : 1);
    coder->begin(records.data());
    for (std::size_t at = length; at < records.size(); at += length) {
        coder->code(streams, records.data() + at);
    }
    std::string chunk(records.data(), length);
    std::vector<std::span<const char>> parts;
    for (Encoder& stream : streams) {
        const bool isKept = !schema.isLayered() || parts.size() < kKeptLayers || stream.isNeeded();
        parts.push_back(isKept ? stream.finish() : std::span<const char>());
    }
    if (schema.isLayered()) {
        appendWord(chunk, records.size() / length);
        for (const auto& part : parts) {
            appendWord(chunk, part.size());
        }
    }
    for (const auto& part : parts) {
        chunk.append(part.begin(), part.end());
    }
    return chunk;
}

ChunkDecoder::ChunkDecoder(const Schema& schema, const ChunkBytes& bytes, std::uint64_t count)
    : schema_(schema), bytes_(bytes), count_(count) {}

std::size_t ChunkDecoder::decode(std::span<char> records) {
    const std::size_t length = schema_.recordLength;
    std::size_t done = 0;
    if (!coder_ && !records.empty()) {
        if (!open(records.first(length))) {
            return 0;
        }
        ++done;
    }
    for (const std::size_t count = records.size() / length; done < count && !damage_.isThere();
         ++done) {
        coder_->code(streams_, records.data() + done * length);
        if (damage_.isThere()) {
            break;
        }
    }
    return done;
}

bool ChunkDecoder::open(std::span<char> first) {
    const std::size_t got = bytes_.read(bytes_.begin, first);
    if (got < first.size()) {
        damaged("the end of the coded bytes", "the first point of a chunk", bytes_.begin + got);
        return false;
    }
    const std::uint64_t at = bytes_.begin + got;
    if (schema_.isLayered()) {
        if (!openLayers(at)) {
            return false;
        }
    } else {
        streams_.reserve(1);
        streams_.emplace_back(ByteStream(bytes_, at, bytes_.end, WINDOW), damage_);
    }
    coder_ = makeRecordCoder<Decoder>(schema_);
    coder_->begin(first.data());
    return true;
}

bool ChunkDecoder::openLayers(std::uint64_t at) {
    const std::size_t layers = schema_.layers();
    std::vector<char> head(kWord * (1 + layers));
    const std::size_t got = bytes_.read(at, head);
    if (got < head.size()) {
        damaged("the end of the coded bytes", "the sizes of the layers", at + got);
        return false;
    }
    const auto count = loadLittle<std::uint32_t>(head.data());
    const auto bytesOfXY = loadLittle<std::uint32_t>(head.data() + kWord);
    if (count != count_ || count > mostPoints(bytesOfXY)) {
        damaged(fmt::format("a chunk of {} points in a layer of {} bytes", count, bytesOfXY),
                fmt::format("{} points, for which there is room", count_), at);
        return false;
    }
    const std::size_t window = std::max(kSmallestWindow, WINDOW / layers);
    std::uint64_t begin = at + head.size();
    streams_.reserve(layers);
    for (std::size_t layer = 0; layer < layers; ++layer) {
        const auto size = loadLittle<std::uint32_t>(head.data() + kWord * (1 + layer));
        streams_.emplace_back(ByteStream(bytes_, begin, begin + size, window), damage_);
        begin += size;
    }
    if (!damage_.isThere() && bytesOfXY == 0) {
        damaged("an empty layer of x and y", "one that is not", at + kWord);
    }
    return true;
}

void ChunkDecoder::expectEnd() {
    for (Decoder& stream : streams_) {
        stream.expectEnd();
    }
    if (!streams_.empty() && !damage_.isThere() && end() != bytes_.end) {
        damaged("bytes that are left over", "the end of the chunk", end());
    }
}

std::uint64_t ChunkDecoder::end() const {
    std::uint64_t place = bytes_.begin;
    for (const Decoder& stream : streams_) {
        place = std::max(place, stream.position());
    }
    return place;
}

}  // namespace Ovr::Formats::Laz
