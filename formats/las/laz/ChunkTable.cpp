// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/ChunkTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "kit/LittleEndian.h"
#include "las/laz/Decoder.h"
#include "las/laz/DifferenceCoder.h"
#include "las/laz/Encoder.h"

namespace Ovr::Formats::Laz {

namespace {

constexpr std::size_t kWindow = 4096;  // [bytes]

/// What a table says of a chunk.
struct Entry {
    std::uint32_t points = 0;
    std::uint32_t bytes = 0;
};

class Entries {
  public:
    explicit Entries(bool arePointsCoded) : arePointsCoded_(arePointsCoded) {}

    /// @param entry  what an encoder writes
    template <class Coder>
    Entry code(Coder& coder, const Entry& entry) {
        if (arePointsCoded_) {
            last_.points = code(coder, last_.points, entry.points, 0);
        }
        last_.bytes = code(coder, last_.bytes, entry.bytes, 1);
        return last_;
    }

  private:
    template <class Coder>
    std::uint32_t code(Coder& coder, std::uint32_t last, std::uint32_t now, unsigned context) {
        return static_cast<std::uint32_t>(differences_.code(
            coder, static_cast<std::int32_t>(last), static_cast<std::int32_t>(now), context));
    }

    bool arePointsCoded_;
    Entry last_;
    DifferenceCoder<32> differences_{2};
};

std::string readEntries(InputFile& file, const Schema& schema, const PointData& data,
                        std::uint64_t place, std::uint32_t count, std::vector<ChunkPlace>& chunks) {
    const std::uint64_t begin = place + ChunkTable::HEAD_SIZE;
    Damage damage;
    Decoder decoder(ByteStream({&file, {}, begin, file.size()}, begin, file.size(), kWindow),
                    damage);
    Entries entries(schema.hasVaryingChunks());
    ChunkPlace chunk{data.begin, data.begin, 0, 0};
    chunks.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        const Entry entry = entries.code(decoder, {});
        chunk.first += chunk.count;
        chunk.begin = chunk.end;
        chunk.end += entry.bytes;
        const std::uint64_t left = data.count - std::min(chunk.first, data.count);
        // One more chunk than there are points for shows when all are counted.
        chunk.count = schema.hasVaryingChunks()
                          ? entry.points
                          : std::clamp<std::uint64_t>(left, 1, schema.chunkSize);
        if (damage.isThere() || entry.bytes < schema.smallestChunk() || chunk.end > place ||
            chunk.count == 0 || chunk.count > mostPoints(entry.bytes)) {
            return fmt::format("its entry for chunk {} cannot be: {} bytes, {} points", i,
                               entry.bytes, chunk.count);
        }
        chunks.push_back(chunk);
    }
    return {};
}

}  // namespace

bool ChunkTable::isThere(InputFile& file, std::uint64_t place) {
    std::array<char, HEAD_SIZE> head{};
    return file.readAt(place, head) == head.size() && loadLittle<std::uint32_t>(head.data()) == 0;
}

std::string ChunkTable::read(InputFile& file, const Schema& schema, const PointData& data,
                             std::uint64_t place, std::vector<ChunkPlace>& chunks) {
    std::array<char, HEAD_SIZE> head{};
    if (file.readAt(place, head) != head.size()) {
        return "the file ends in it";
    }
    const auto version = loadLittle<std::uint32_t>(head.data());
    const auto count = loadLittle<std::uint32_t>(head.data() + 4);
    if (version != 0) {
        return fmt::format("its version is {}", version);
    }
    const std::uint64_t most = (place - data.begin) / schema.smallestChunk();
    if (count > most) {
        return fmt::format("it counts {} chunks where {} have room", count, most);
    }
    std::string why =
        count == 0 ? std::string() : readEntries(file, schema, data, place, count, chunks);
    if (why.empty() && data.count != 0 && (chunks.empty() || chunks.back().end != place)) {
        why = "its chunks do not fill the bytes before it";
    }
    return why;
}

std::string ChunkTable::encode(const std::vector<std::uint32_t>& sizes) {
    std::string table(HEAD_SIZE, '\0');
    storeLittle(table.data() + 4, static_cast<std::uint32_t>(sizes.size()));
    if (sizes.empty()) {
        return table;
    }
    Encoder encoder;
    Entries entries(false);
    for (const std::uint32_t size : sizes) {
        entries.code(encoder, {0, size});
    }
    const auto stream = encoder.finish();
    return table.append(stream.begin(), stream.end());
}

}  // namespace Ovr::Formats::Laz
