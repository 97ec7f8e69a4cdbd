// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/LayeredWalk.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "kit/LittleEndian.h"
#include "kit/TextFields.h"

namespace Ovr::Formats::Laz {

using Interfaces::ErrorCode;

ErrorPtr walkLayeredChunks(InputFile& file, const Schema& schema, const PointData& data,
                           ChunkList& list) {
    constexpr std::size_t kWord = 4;
    std::vector<char> head(kWord * (1 + schema.layers()));
    for (ChunkPlace chunk{data.begin, data.begin, 0, 0}; chunk.first < data.count;
         list.chunks.push_back(chunk), chunk.first += chunk.count) {
        chunk.begin = chunk.end;
        const std::uint64_t left = data.count - chunk.first;
        const std::uint64_t layers = chunk.begin + schema.recordLength + head.size();
        if (layers > data.end || file.readAt(layers - head.size(), head) != head.size()) {
            return chunkFault(file, ErrorCode::Truncated, list.chunks.size(), chunk.first,
                              chunk.begin, "the end of the point data",
                              fmt::format("{} more", countText(left, "point")));
        }
        chunk.count = loadLittle<std::uint32_t>(head.data());
        chunk.end = layers;
        for (std::size_t at = kWord; at < head.size(); at += kWord) {
            chunk.end += loadLittle<std::uint32_t>(head.data() + at);
        }
        chunk.end = std::min(chunk.end, data.end);
        const std::uint64_t most =
            std::min({left, std::uint64_t{schema.chunkSize}, mostPoints(chunk.end - chunk.begin)});
        if (chunk.count == 0 || chunk.count > most) {
            return chunkFault(file, ErrorCode::InvalidValue, list.chunks.size(), chunk.first,
                              layers - head.size(),
                              fmt::format("a chunk of {}", countText(chunk.count, "point")),
                              fmt::format("1 to {}", most));
        }
    }
    return nullptr;
}

}  // namespace Ovr::Formats::Laz
