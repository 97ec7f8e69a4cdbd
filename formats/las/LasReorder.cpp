// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasReorder.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "kit/LittleEndian.h"
#include "kit/TextFields.h"
#include "kit/WorkWatch.h"
#include "las/LasDamage.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

constexpr std::uint64_t kMostPoints = std::numeric_limits<std::int32_t>::max();
constexpr std::uint64_t kCopySize = std::uint64_t{1} << 20;     // [bytes]
constexpr std::uint64_t kWindowSize = std::uint64_t{64} << 20;  // at least [bytes]
/// The source is read at most so many times, however large it is.
constexpr std::uint64_t kMostWindows = 4;

/// A record of the source and its place in a window.
struct Pick {
    std::uint32_t number;
    std::uint32_t place;
};

/// The records of a window, by the groups of the source that they are in. Each group is read once
/// for each window that needs it, and its records go to ascending places.
class Picks {
  public:
    explicit Picks(std::uint64_t groups) : ends_(static_cast<std::size_t>(groups)) {}

    /// @param numbers  by place in the window, the number of the record
    void fill(std::span<const std::uint32_t> numbers) {
        std::fill(ends_.begin(), ends_.end(), 0);
        for (const std::uint32_t number : numbers) {
            ++ends_[LasGroups::groupOf(number)];
        }
        std::exclusive_scan(ends_.begin(), ends_.end(), ends_.begin(), std::uint32_t{0});
        picks_.resize(numbers.size());
        for (std::uint32_t place = 0; place < numbers.size(); ++place) {
            picks_[ends_[LasGroups::groupOf(numbers[place])]++] = {numbers[place], place};
        }
    }

    std::span<const Pick> of(std::size_t group) const {
        const std::size_t begin = group == 0 ? 0 : ends_[group - 1];
        return std::span(picks_).subspan(begin, ends_[group] - begin);
    }

  private:
    std::vector<Pick> picks_;
    std::vector<std::uint32_t> ends_;  ///< by group, in picks_
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
    return groups_.open(file_, header_, work);
}

ErrorPtr LasReorder::visitTimes(
    const std::function<void(std::uint32_t first, std::span<const double> times)>& visit,
    const DataStructures::Work& work) {
    WorkWatch watch(work);
    const std::size_t timeOffset = *lasRecordLayout(header_.format).time;
    const std::size_t length = header_.recordLength;
    std::vector<double> times;
    for (std::uint64_t group = 0; group < groups_.count(); ++group) {
        std::span<const char> records;
        if (ErrorPtr error = groups_.read(group, records)) {
            return error;
        }
        times.resize(records.size() / length);
        for (std::size_t i = 0; i < times.size(); ++i) {
            times[i] = loadLittle<double>(records.data() + i * length + timeOffset);
        }
        visit(static_cast<std::uint32_t>(group * LasGroups::SIZE), times);
        if (!watch.goOn(static_cast<double>(group) / static_cast<double>(groups_.count()))) {
            return cancelled(file_.name());
        }
    }
    return nullptr;
}

ErrorPtr LasReorder::write(const std::filesystem::path& target, Existing existing, bool compress,
                           std::span<const std::uint32_t> order, const DataStructures::Work& work) {
    LasRecordWriter writer;
    if (ErrorPtr error = writeHead(writer, target, existing, compress)) {
        return error;
    }
    if (ErrorPtr error = writePoints(writer, order, work)) {
        return error;
    }
    return writeRest(writer);
}

/// Takes out the records on the compression: the writer makes its own where one is needed.
/// @param between  the bytes between header and points
void LasReorder::dropCompression(std::string& between) {
    const std::size_t size = head_.size();
    auto count = loadLittle<std::uint32_t>(head_.data() + LasField::kVlrCount);
    for (auto record = header_.records.rbegin(); record != header_.records.rend(); ++record) {
        if (record->isOnCompression()) {
            const std::uint64_t head = record->begin - LasVlr::kHeadSize;
            between.erase(static_cast<std::size_t>(head - size),
                          static_cast<std::size_t>(record->begin + record->length - head));
            --count;
        }
    }
    storeLittle(head_.data() + LasField::kVlrCount, count);
}

ErrorPtr LasReorder::writeHead(LasRecordWriter& writer, const std::filesystem::path& target,
                               Existing existing, bool compress) {
    std::string bytes;
    if (ErrorPtr error = readBytes(0, header_.pointOffset, bytes)) {
        return error;
    }
    const auto size = loadLittle<std::uint16_t>(bytes.data() + LasField::kHeaderSize);
    head_ = bytes.substr(0, size);
    std::string between = bytes.substr(size);
    if (header_.compression) {
        head_[LasField::kFormat] = static_cast<char>(header_.format);
        dropCompression(between);
    }
    setLasCount(head_, header_);
    return writer.open(target, existing, head_, std::move(between), compress);
}

ErrorPtr LasReorder::writePoints(LasRecordWriter& writer, std::span<const std::uint32_t> order,
                                 const DataStructures::Work& work) {
    WorkWatch watch(work);
    const std::size_t length = header_.recordLength;
    const std::size_t perWindow = static_cast<std::size_t>(
        std::max(kWindowSize / length, (order.size() + kMostWindows - 1) / kMostWindows));
    const auto groups = static_cast<std::size_t>(groups_.count());
    Picks picks(groups);
    std::vector<char> window(std::min(perWindow, order.size()) * length);
    for (std::size_t begin = 0; begin < order.size(); begin += perWindow) {
        const std::size_t count = std::min(perWindow, order.size() - begin);
        picks.fill(order.subspan(begin, count));
        for (std::size_t group = 0; group < groups; ++group) {
            if (picks.of(group).empty()) {
                continue;
            }
            std::span<const char> records;
            if (ErrorPtr error = groups_.read(group, records)) {
                return error;
            }
            for (const Pick& pick : picks.of(group)) {
                std::memcpy(window.data() + pick.place * length,
                            records.data() + (pick.number - group * LasGroups::SIZE) * length,
                            length);
            }
            const double done = static_cast<double>(group + 1) / static_cast<double>(groups);
            if (!watch.goOn((static_cast<double>(begin) + done * static_cast<double>(count)) /
                            static_cast<double>(order.size()))) {
                return cancelled(file_.name());
            }
        }
        if (ErrorPtr error = writer.write({window.data(), count * length})) {
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
