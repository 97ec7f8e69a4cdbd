// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/LayeredWalk.h"

#include <algorithm>
#include <vector>

#include "kit/LittleEndian.h"

namespace Ovr::Formats::Laz {

void walkLayeredChunks(InputFile& file, const Schema& schema, const PointData& data,
                       ChunkList& list) {
    constexpr std::size_t kWord = 4;
    std::vector<char> head(kWord * (1 + schema.layers()));
    bool isRight = true;
    for (ChunkPlace chunk{data.begin, data.begin, 0, 0}; isRight && chunk.first < data.count;
         list.chunks.push_back(chunk), chunk.first += chunk.count) {
        chunk.begin = chunk.end;
        chunk.end = data.end;
        const std::uint64_t left = data.count - chunk.first;
        chunk.count = std::min(left, std::uint64_t{schema.chunkSize});
        const std::uint64_t layers = chunk.begin + schema.recordLength + head.size();
        isRight = layers <= data.end && file.readAt(layers - head.size(), head) == head.size();
        if (!isRight) {
            continue;
        }
        std::uint64_t end = layers;
        for (std::size_t at = kWord; at < head.size(); at += kWord) {
            end += loadLittle<std::uint32_t>(head.data() + at);
        }
        const std::uint64_t count = loadLittle<std::uint32_t>(head.data());
        isRight = count <= mostPoints(std::min(end, data.end) - chunk.begin) &&
                  (schema.hasVaryingChunks() ? count != 0 && count <= left : count == chunk.count);
        if (isRight) {
            chunk.count = count;
            chunk.end = std::min(end, data.end);
        }
    }
}

}  // namespace Ovr::Formats::Laz
