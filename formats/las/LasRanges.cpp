// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasRanges.h"

#include <algorithm>
#include <cstddef>

#include "kit/LittleEndian.h"
#include "kit/WorkWatch.h"
#include "las/LasBlocks.h"

namespace Ovr::Formats {

namespace {

constexpr unsigned kFirstNewFormat = 6;

/// Where scan angle and point source stand [bytes].
struct OldRecord {
    static constexpr std::size_t kSource = 18;
    static std::int16_t angle(const char* record) { return loadLittle<std::int8_t>(record + 16); }
};
struct NewRecord {
    static constexpr std::size_t kSource = 20;
    static std::int16_t angle(const char* record) { return loadLittle<std::int16_t>(record + 18); }
};

template <typename Record>
void addBlock(const LasBlocks& blocks, LasRanges& ranges) {
    for (std::uint64_t i = 0; i < blocks.records(); ++i) {
        const char* const record = blocks.record(i);
        const std::int16_t angle = Record::angle(record);
        ranges.lowestAngle = std::min(ranges.lowestAngle, angle);
        ranges.highestAngle = std::max(ranges.highestAngle, angle);
        const auto source = loadLittle<std::uint16_t>(record + Record::kSource);
        ranges.lowestSource = std::min(ranges.lowestSource, source);
        ranges.highestSource = std::max(ranges.highestSource, source);
    }
}

}  // namespace

double lasScanAngle(const LasHeader& header, std::int16_t stored) {
    return header.format < kFirstNewFormat ? stored : stored * 6 / 1000.0;
}

ErrorPtr findLasRanges(InputFile& file, const LasHeader& header, LasRanges& ranges,
                       const DataStructures::Work& work) {
    ranges = {};
    WorkWatch watch(work);
    const auto opened = openLasBlocks(file, header, header.count);
    for (LasBlocks& blocks = *opened; !blocks.atEnd();) {
        if (ErrorPtr error = blocks.next()) {
            return error;
        }
        header.format < kFirstNewFormat ? addBlock<OldRecord>(blocks, ranges)
                                        : addBlock<NewRecord>(blocks, ranges);
        if (!watch.goOn(blocks.fraction())) {
            return cancelled(file.name());
        }
    }
    return nullptr;
}

}  // namespace Ovr::Formats
