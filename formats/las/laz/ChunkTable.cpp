// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/ChunkTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <utility>

#include "kit/LittleEndian.h"
#include "kit/TextFields.h"
#include "las/laz/Decoder.h"
#include "las/laz/DifferenceCoder.h"
#include "las/laz/Encoder.h"
#include "las/laz/LayeredWalk.h"

namespace Ovr::Formats::Laz {

using Interfaces::ErrorCode;

namespace {

constexpr std::uint64_t kPositionSize = 8;  // of the place of the table [bytes]
constexpr std::uint64_t kHeadSize = 8;      // of the table: version and number of chunks [bytes]
constexpr std::size_t kWindow = 4096;       // [bytes]
constexpr unsigned kCountContext = 0;
constexpr unsigned kSizeContext = 1;

class Finder {
  public:
    Finder(InputFile& file, const Schema& schema, const PointData& data, ChunkList& list)
        : file_(file), schema_(schema), data_(data), list_(list) {}

    [[nodiscard]] ErrorPtr find(Remarks& remarks);

  private:
    std::optional<std::uint64_t> tablePlace();
    std::string readTable(std::uint64_t place);
    std::string decodeTable(std::uint64_t place, std::uint32_t chunks);
    [[nodiscard]] ErrorPtr checkCounts() const;
    [[nodiscard]] ErrorPtr goWithoutTable(const std::string& why, Remarks& remarks);
    std::uint64_t expectedCount(std::uint64_t first) const {
        return std::min<std::uint64_t>(schema_.chunkSize, data_.count - first);
    }
    std::uint64_t firstChunk() const { return data_.begin + kPositionSize; }

    InputFile& file_;
    const Schema& schema_;
    const PointData& data_;
    ChunkList& list_;
};

ErrorPtr Finder::find(Remarks& remarks) {
    if (schema_.compressor == Compressor::Stream) {
        list_ = {{{data_.begin, data_.end, 0, data_.count}}, false};
        return nullptr;
    }
    std::string why = "it is named nowhere";
    if (const auto place = tablePlace()) {
        why = readTable(*place);
    }
    return why.empty() ? checkCounts() : goWithoutTable(why, remarks);
}

/// A writer that could not go back leaves -1 and puts the place behind everything.
std::optional<std::uint64_t> Finder::tablePlace() {
    const auto positionAt = [this](std::uint64_t place) -> std::int64_t {
        std::array<char, kPositionSize> bytes{};
        return file_.readAt(place, bytes) == bytes.size() ? loadLittle<std::int64_t>(bytes.data())
                                                          : 0;
    };
    const auto isPlace = [this](std::int64_t place, std::uint64_t end) {
        return place >= 0 && static_cast<std::uint64_t>(place) >= firstChunk() &&
               static_cast<std::uint64_t>(place) + kHeadSize <= end;
    };
    const std::int64_t named = positionAt(data_.begin);
    if (isPlace(named, file_.size())) {
        return static_cast<std::uint64_t>(named);
    }
    for (const std::uint64_t end : {file_.size(), data_.end}) {
        const std::uint64_t at = std::max(end, kPositionSize) - kPositionSize;
        if (named == -1 && isPlace(positionAt(at), at)) {
            return static_cast<std::uint64_t>(positionAt(at));
        }
    }
    return std::nullopt;
}

/// @return what is wrong with the table; empty if nothing is
std::string Finder::readTable(std::uint64_t place) {
    std::array<char, kHeadSize> head{};
    if (file_.readAt(place, head) != head.size()) {
        return "the file ends in it";
    }
    const auto version = loadLittle<std::uint32_t>(head.data());
    const auto chunks = loadLittle<std::uint32_t>(head.data() + 4);
    if (version != 0) {
        return fmt::format("its version is {}", version);
    }
    const std::uint64_t most = (place - firstChunk()) / schema_.smallestChunk();
    if (chunks > most) {
        return fmt::format("it counts {} chunks where {} have room", chunks, most);
    }
    std::string why = chunks == 0 ? std::string() : decodeTable(place, chunks);
    if (why.empty() && data_.count != 0 &&
        (list_.chunks.empty() || list_.chunks.back().end != place)) {
        why = "its chunks do not fill the bytes before it";
    }
    return why;
}

std::string Finder::decodeTable(std::uint64_t place, std::uint32_t chunks) {
    const std::uint64_t begin = place + kHeadSize;
    Damage damage;
    Decoder decoder(ByteStream({&file_, {}, begin, file_.size()}, begin, file_.size(), kWindow),
                    damage);
    DifferenceCoder<32> differences(2);
    std::int32_t count = 0;
    std::int32_t size = 0;
    ChunkPlace chunk{firstChunk(), firstChunk(), 0, 0};
    list_.chunks.reserve(chunks);
    for (std::uint32_t i = 0; i < chunks; ++i) {
        if (schema_.hasVaryingChunks()) {
            count = differences.code(decoder, count, 0, kCountContext);
        }
        size = differences.code(decoder, size, 0, kSizeContext);
        const std::uint64_t bytes = static_cast<std::uint32_t>(size);
        chunk.first += chunk.count;
        chunk.begin = chunk.end;
        chunk.end = chunk.begin + bytes;
        chunk.count =
            schema_.hasVaryingChunks()
                ? static_cast<std::uint32_t>(count)
                : std::max<std::uint64_t>(1, expectedCount(std::min(chunk.first, data_.count)));
        if (damage.found != nullptr || bytes < schema_.smallestChunk() || chunk.end > place ||
            chunk.count == 0 || chunk.count > mostPoints(bytes)) {
            return fmt::format("its entry for chunk {} cannot be", i);
        }
        list_.chunks.push_back(chunk);
    }
    return {};
}

ErrorPtr Finder::checkCounts() const {
    const auto& chunks = list_.chunks;
    const std::uint64_t counted = chunks.empty() ? 0 : chunks.back().first + chunks.back().count;
    if (counted == data_.count) {
        return nullptr;
    }
    const std::string points = countText(data_.count, "point");
    if (schema_.hasVaryingChunks()) {
        return file_.fault(ErrorCode::InvalidValue, data_.begin,
                           fmt::format("chunks with {}", countText(counted, "point")),
                           fmt::format("the {} of the header", points));
    }
    return file_.fault(ErrorCode::InvalidValue, data_.begin, countText(chunks.size(), "chunk"),
                       fmt::format("{} for the {} of the header",
                                   (data_.count - 1) / schema_.chunkSize + 1, points));
}

ErrorPtr Finder::goWithoutTable(const std::string& why, Remarks& remarks) {
    list_.chunks.clear();
    if (data_.count == 0) {
        return nullptr;
    }
    if (schema_.hasVaryingChunks() && !schema_.isLayered()) {
        return file_.fault(ErrorCode::Unsupported, data_.begin,
                           fmt::format("no chunk table ({})", why),
                           "one, for the chunks vary in size");
    }
    remarks.warn(fmt::format(
        "{}: byte {}: the chunk table is missing ({}); the chunks are found one after another",
        file_.name(), data_.begin, why));
    const PointData chunks{firstChunk(), data_.end, data_.count};
    if (schema_.isLayered()) {
        return walkLayeredChunks(file_, schema_, chunks, list_);
    }
    if (chunks.begin > chunks.end) {
        return file_.fault(ErrorCode::Truncated, data_.begin, "the end of the file", "chunks");
    }
    list_ = {{{chunks.begin, chunks.end, 0, chunks.count}}, false};
    return nullptr;
}

}  // namespace

ErrorPtr findChunks(InputFile& file, const Schema& schema, const PointData& data, ChunkList& list,
                    Remarks& remarks) {
    ErrorPtr error = Finder(file, schema, data, list).find(remarks);
    if (!error && !list.endsAreKnown && data.count > mostPoints(data.end - data.begin)) {
        return file.fault(ErrorCode::Truncated, data.begin, countText(data.count, "point"),
                          fmt::format("at most {}, for which the file has room",
                                      mostPoints(data.end - data.begin)));
    }
    return error;
}

std::string encodeChunkTable(const std::vector<std::uint32_t>& sizes) {
    std::string table(kHeadSize, '\0');
    storeLittle(table.data() + 4, static_cast<std::uint32_t>(sizes.size()));
    if (sizes.empty()) {
        return table;
    }
    Encoder encoder;
    DifferenceCoder<32> differences(2);
    std::int32_t last = 0;
    for (const std::uint32_t size : sizes) {
        last = differences.code(encoder, last, static_cast<std::int32_t>(size), kSizeContext);
    }
    const auto stream = encoder.finish();
    return table.append(stream.begin(), stream.end());
}

ErrorPtr chunkFault(const InputFile& file, ErrorCode code, std::uint64_t chunk, std::uint64_t point,
                    std::uint64_t byte, std::string found, std::string expected) {
    return makeError(code,
                     {file.name(), fmt::format("chunk {}, point {}, byte {}", chunk, point, byte),
                      std::move(found), std::move(expected)});
}

}  // namespace Ovr::Formats::Laz
