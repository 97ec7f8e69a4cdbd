// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasReorder.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <vector>

#include "kit/LittleEndian.h"
#include "kit/TextFields.h"
#include "kit/WorkWatch.h"
#include "las/LasBlocks.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

constexpr std::uint64_t kMostPoints = std::numeric_limits<std::int32_t>::max();
constexpr std::uint64_t kCopySize = std::uint64_t{1} << 20;    // [bytes]
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

}  // namespace

ErrorPtr LasReorder::open(const std::filesystem::path& file, Remarks& remarks) {
    if (ErrorPtr error = file_.open(file)) {
        return error;
    }
    if (ErrorPtr error = readLasHeader(file_, header_, remarks)) {
        return error;
    }
    if (!lasRecordLayout(header_.format).time) {
        return noLasTimes(file_.name(), header_);
    }
    if (header_.count > kMostPoints) {
        return makeError(ErrorCode::Unsupported,
                         {file_.name(), "", countText(header_.count, "point"),
                          fmt::format("at most {} in one scan", kMostPoints)});
    }
    return nullptr;
}

ErrorPtr LasReorder::visitTimes(
    const std::function<void(std::uint32_t number, double time)>& visit,
    const DataStructures::Work& work) {
    WorkWatch watch(work);
    const std::size_t timeOffset = *lasRecordLayout(header_.format).time;
    for (LasBlocks blocks(file_, header_, header_.count); !blocks.atEnd();) {
        if (ErrorPtr error = blocks.next()) {
            return error;
        }
        for (std::uint64_t i = 0; i < blocks.records(); ++i) {
            visit(static_cast<std::uint32_t>(blocks.first() + i),
                  loadLittle<double>(blocks.record(i) + timeOffset));
        }
        if (!watch.goOn(blocks.fraction())) {
            return cancelled(file_.name());
        }
    }
    return nullptr;
}

ErrorPtr LasReorder::write(const std::filesystem::path& target, Existing existing,
                           std::span<const std::uint32_t> ranks,
                           const DataStructures::Work& work) {
    AtomicFile output;
    if (ErrorPtr error = output.open(target, existing)) {
        return error;
    }
    if (ErrorPtr error = copyBytes(0, header_.pointOffset, output)) {
        return error;
    }
    WorkWatch watch(work);
    const std::uint64_t length = header_.recordLength;
    const std::uint64_t perWindow = std::max(kWindowSize / length, std::uint64_t{1});
    const std::vector<Window> windows = windowsOf(ranks, perWindow);
    std::vector<char> records;
    for (std::size_t w = 0; w < windows.size(); ++w) {
        const std::uint64_t begin = w * perWindow;
        const std::uint64_t count = std::min(perWindow, ranks.size() - begin);
        records.resize(count * length);
        LasBlocks blocks(file_, header_, std::uint64_t{windows[w].last} + 1, windows[w].first);
        while (!blocks.atEnd()) {
            if (ErrorPtr error = blocks.next()) {
                return error;
            }
            for (std::uint64_t i = 0; i < blocks.records(); ++i) {
                const std::uint64_t place = ranks[blocks.first() + i] - begin;  // huge below begin
                if (place < count) {
                    std::memcpy(records.data() + place * length, blocks.record(i), length);
                }
            }
            if (!watch.goOn((static_cast<double>(w) + blocks.fraction()) /
                            static_cast<double>(windows.size()))) {
                return cancelled(file_.name());
            }
        }
        output.stream().write(records.data(), static_cast<std::streamsize>(records.size()));
        if (ErrorPtr error = output.failure()) {
            return error;
        }
    }
    if (ErrorPtr error = copyBytes(header_.pointOffset + header_.count * length, file_.size(),
                                   output)) {
        return error;
    }
    return output.commit();
}

ErrorPtr LasReorder::copyBytes(std::uint64_t begin, std::uint64_t end, AtomicFile& target) {
    std::vector<char> bytes(static_cast<std::size_t>(std::min(kCopySize, end - begin)));
    for (std::uint64_t at = begin; at < end; at += bytes.size()) {
        const std::span part =
            std::span(bytes).first(static_cast<std::size_t>(std::min(kCopySize, end - at)));
        if (const std::size_t got = file_.readAt(at, part); got != part.size()) {
            return file_.fault(ErrorCode::Truncated, at + got, "the end of the file",
                               countText(end, "byte"));
        }
        target.stream().write(part.data(), static_cast<std::streamsize>(part.size()));
    }
    return target.failure();
}

}  // namespace Ovr::Formats
