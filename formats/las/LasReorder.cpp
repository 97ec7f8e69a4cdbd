// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasReorder.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "kit/LittleEndian.h"
#include "kit/TextFields.h"
#include "kit/WorkWatch.h"
#include "las/LasDamage.h"
#include "las/laz/SchemaRecord.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

constexpr std::uint64_t kMostPoints = std::numeric_limits<std::int32_t>::max();
constexpr std::uint64_t kCopySize = std::uint64_t{1} << 20;     // [bytes]
constexpr std::uint64_t kWindowSize = std::uint64_t{32} << 20;  // [bytes]

/// A stretch of the points to write, and which points of the source it needs.
struct Window {
    std::uint32_t first = std::numeric_limits<std::uint32_t>::max();
    std::uint32_t last = 0;
};

/// The source is read once for each window, from the first to the last point that it needs: once
/// in all for points that are nearly in order.
std::vector<Window> windowsOf(std::span<const std::uint32_t> ranks, std::uint64_t length) {
    std::vector<Window> windows((ranks.size() + length - 1) / length);
    for (std::uint32_t number = 0; number < ranks.size(); ++number) {
        Window& window = windows[ranks[number] / length];
        window.first = std::min(window.first, number);
        window.last = number;
    }
    return windows;
}

/// The records of a file that are in memory, all in one block.
class HeldBlocks final : public LasBlocks {
  public:
    HeldBlocks(const std::vector<char>& held, std::uint64_t length, std::uint64_t end,
               std::uint64_t first)
        : LasBlocks(length, end, first), held_(held) {}

    ErrorPtr next() override {
        show(held_.data() + first() * length(), end() - first());
        return nullptr;
    }
    ErrorPtr fault(ErrorCode code, std::uint64_t i, std::size_t /*field*/, std::string found,
                   std::string expected) const override {
        return makeError(code, {"", fmt::format("point {}", first() + i), std::move(found),
                                std::move(expected)});
    }

  private:
    const std::vector<char>& held_;
};

}  // namespace

ErrorPtr LasReorder::open(const std::filesystem::path& file, bool lenient, Remarks& remarks,
                          const DataStructures::Work& work) {
    if (ErrorPtr error = file_.open(file)) {
        return error;
    }
    if (ErrorPtr error = readLasHeader(file_, header_, remarks, lenient)) {
        return error;
    }
    if (!lasRecordLayout(header_.format).time) {
        return noLasTimes(file_.name(), header_);
    }
    if (lenient) {
        if (ErrorPtr error = shortenToReadable(file_, header_, remarks, work)) {
            return error;
        }
    }
    if (header_.count > kMostPoints) {
        return makeError(ErrorCode::Unsupported,
                         {file_.name(), "", countText(header_.count, "point"),
                          fmt::format("at most {} in one scan", kMostPoints)});
    }
    return header_.compression ? hold(work) : nullptr;
}

ErrorPtr LasReorder::hold(const DataStructures::Work& work) {
    WorkWatch watch(work);
    const auto walk = openLasBlocks(file_, header_, header_.count);
    while (!walk->atEnd()) {
        if (ErrorPtr error = walk->next()) {
            return error;
        }
        held_.insert(held_.end(), walk->record(0),
                     walk->record(0) + walk->records() * header_.recordLength);
        if (!watch.goOn(walk->fraction())) {
            return cancelled(file_.name());
        }
    }
    isHeld_ = true;
    return nullptr;
}

std::unique_ptr<LasBlocks> LasReorder::blocks(std::uint64_t end, std::uint64_t first) {
    return isHeld_ ? std::make_unique<HeldBlocks>(held_, header_.recordLength, end, first)
                   : openPlainBlocks(file_, header_, end, first);
}

ErrorPtr LasReorder::visitTimes(const std::function<void(std::uint32_t number, double time)>& visit,
                                const DataStructures::Work& work) {
    WorkWatch watch(work);
    const std::size_t timeOffset = *lasRecordLayout(header_.format).time;
    const auto walk = blocks(header_.count, 0);
    while (!walk->atEnd()) {
        if (ErrorPtr error = walk->next()) {
            return error;
        }
        for (std::uint64_t i = 0; i < walk->records(); ++i) {
            visit(static_cast<std::uint32_t>(walk->first() + i),
                  loadLittle<double>(walk->record(i) + timeOffset));
        }
        if (!watch.goOn(walk->fraction())) {
            return cancelled(file_.name());
        }
    }
    return nullptr;
}

ErrorPtr LasReorder::write(const std::filesystem::path& target, Existing existing, bool compress,
                           std::span<const std::uint32_t> ranks, const DataStructures::Work& work) {
    LasRecordWriter writer;
    if (ErrorPtr error = writeHead(writer, target, existing, compress)) {
        return error;
    }
    if (ErrorPtr error = writePoints(writer, ranks, work)) {
        return error;
    }
    return writeRest(writer);
}

/// The record on the compression is left out: the writer makes its own where one is needed.
ErrorPtr LasReorder::writeHead(LasRecordWriter& writer, const std::filesystem::path& target,
                               Existing existing, bool compress) {
    std::string bytes;
    if (ErrorPtr error = readBytes(0, header_.pointOffset, bytes)) {
        return error;
    }
    const auto size = loadLittle<std::uint16_t>(bytes.data() + LasField::kHeaderSize);
    head_ = bytes.substr(0, size);
    std::string between = bytes.substr(size);
    const LasRecord* const schema =
        findLasRecord(header_.records, Laz::SchemaRecord::USER_ID, Laz::SchemaRecord::RECORD_ID);
    if (header_.compression && schema != nullptr) {
        const std::uint64_t head = schema->begin - LasVlr::kHeadSize;
        between.erase(static_cast<std::size_t>(head - size),
                      static_cast<std::size_t>(schema->begin + schema->length - head));
        head_[LasField::kFormat] = static_cast<char>(header_.format);
        const auto count = loadLittle<std::uint32_t>(head_.data() + LasField::kVlrCount);
        storeLittle(head_.data() + LasField::kVlrCount, count - 1);
    }
    setLasCount(head_, header_);
    return writer.open(target, existing, head_, std::move(between), compress);
}

ErrorPtr LasReorder::writePoints(LasRecordWriter& writer, std::span<const std::uint32_t> ranks,
                                 const DataStructures::Work& work) {
    WorkWatch watch(work);
    const std::uint64_t length = header_.recordLength;
    const std::uint64_t perWindow = std::max(kWindowSize / length, std::uint64_t{1});
    const std::vector<Window> windows = windowsOf(ranks, perWindow);
    std::vector<char> records;
    for (std::size_t w = 0; w < windows.size(); ++w) {
        const std::uint64_t begin = w * perWindow;
        const std::uint64_t count = std::min(perWindow, ranks.size() - begin);
        records.resize(static_cast<std::size_t>(count * length));
        const auto walk = blocks(std::uint64_t{windows[w].last} + 1, windows[w].first);
        while (!walk->atEnd()) {
            if (ErrorPtr error = walk->next()) {
                return error;
            }
            for (std::uint64_t i = 0; i < walk->records(); ++i) {
                const std::uint64_t place = ranks[walk->first() + i] - begin;  // huge below begin
                if (place < count) {
                    std::memcpy(records.data() + place * length, walk->record(i), length);
                }
            }
            if (!watch.goOn((static_cast<double>(w) + walk->fraction()) /
                            static_cast<double>(windows.size()))) {
                return cancelled(file_.name());
            }
        }
        if (ErrorPtr error = writer.write(records)) {
            return error;
        }
    }
    return nullptr;
}

/// What follows plain points is whatever stands after the last one. After compressed ones it is
/// what the header tells of: the chunks and their table are the compression's own.
ErrorPtr LasReorder::writeRest(LasRecordWriter& writer) {
    const std::uint64_t begin =
        header_.compression
            ? header_.restBegin
            : std::min(file_.size(), header_.pointOffset + header_.count * header_.recordLength);
    std::string bytes;
    for (std::uint64_t at = begin; at < file_.size(); at += bytes.size()) {
        if (ErrorPtr error = readBytes(at, std::min(file_.size(), at + kCopySize), bytes)) {
            return error;
        }
        if (ErrorPtr error = writer.writeRest(bytes)) {
            return error;
        }
    }
    return writer.finish(head_, begin);
}

ErrorPtr LasReorder::readBytes(std::uint64_t begin, std::uint64_t end, std::string& bytes) {
    bytes.resize(static_cast<std::size_t>(end - begin));
    if (const std::size_t got = file_.readAt(begin, bytes); got != bytes.size()) {
        return file_.fault(ErrorCode::Truncated, begin + got, "the end of the file",
                           countText(end, "byte"));
    }
    return nullptr;
}

}  // namespace Ovr::Formats
