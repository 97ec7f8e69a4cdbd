// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/ChunkFinder.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>

#include "kit/LittleEndian.h"
#include "kit/TextFields.h"
#include "las/laz/ChunkTable.h"
#include "las/laz/LayeredWalk.h"

namespace Ovr::Formats::Laz {

using Interfaces::ErrorCode;

namespace {

constexpr std::uint64_t kPositionSize = 8;  // of the place of the table [bytes]

class Finder {
  public:
    Finder(InputFile& file, const Schema& schema, const PointData& data, ChunkList& list)
        : file_(file), schema_(schema), data_(data), list_(list) {}

    [[nodiscard]] ErrorPtr find(Remarks& remarks);

  private:
    std::optional<std::uint64_t> tablePlace(std::string& why);
    [[nodiscard]] ErrorPtr checkCounts() const;
    [[nodiscard]] ErrorPtr goWithoutTable(const std::string& why, Remarks& remarks);
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
    std::string why;
    if (const auto place = tablePlace(why)) {
        why = ChunkTable::read(file_, schema_, {firstChunk(), data_.end, data_.count}, *place,
                               list_.chunks);
    }
    return why.empty() ? checkCounts() : goWithoutTable(why, remarks);
}

/// A writer that could not go back leaves -1 and puts the place after everything.
/// @param why  why there is none
std::optional<std::uint64_t> Finder::tablePlace(std::string& why) {
    const auto positionAt = [this](std::uint64_t place) -> std::int64_t {
        std::array<char, kPositionSize> bytes{};
        return file_.readAt(place, bytes) == bytes.size() ? loadLittle<std::int64_t>(bytes.data())
                                                          : 0;
    };
    const auto isPlace = [this](std::int64_t place, std::uint64_t end) {
        return place >= 0 && static_cast<std::uint64_t>(place) >= firstChunk() &&
               static_cast<std::uint64_t>(place) + ChunkTable::HEAD_SIZE <= end;
    };
    const std::int64_t named = positionAt(data_.begin);
    if (isPlace(named, file_.size())) {
        return static_cast<std::uint64_t>(named);
    }
    for (const std::uint64_t end : {file_.size(), data_.end}) {
        const std::uint64_t at = std::max(end, kPositionSize) - kPositionSize;
        const std::int64_t place = positionAt(at);
        if (named == -1 && isPlace(place, at) &&
            ChunkTable::isThere(file_, static_cast<std::uint64_t>(place))) {
            return static_cast<std::uint64_t>(place);
        }
    }
    why = named == 0 || named == -1 ? "it is named nowhere"
                                    : fmt::format("it cannot be at byte {}", named);
    return std::nullopt;
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
        walkLayeredChunks(file_, schema_, chunks, list_);
        return nullptr;
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

}  // namespace Ovr::Formats::Laz
