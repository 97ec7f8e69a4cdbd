// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasPoints.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>

#include "kit/GpsTime.h"
#include "kit/LittleEndian.h"
#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
using Position = Tq_1_1::Vec3d<double>;

namespace {

constexpr std::uint64_t kMostPoints = std::numeric_limits<std::int32_t>::max();
constexpr unsigned kLargestByte = 0xFF;
constexpr std::size_t kColorChannels = 3;

/// What the standard lets stand in place of a system when processing made the file.
constexpr std::array<std::string_view, 5> kOperations{"MERGE", "MODIFICATION", "EXTRACTION",
                                                      "TRANSFORMATION", "OTHER"};

std::uint16_t channel(const char* color, std::size_t i) {
    return loadLittle<std::uint16_t>(color + 2 * i);
}

}  // namespace

LasPointLoader::LasPointLoader(InputFile& file, const LasHeader& header, const ScanSource& source)
    : file_(file), header_(header), source_(source), layout_(lasRecordLayout(header.format)) {}

ErrorPtr LasPointLoader::load(const LoadTarget& target, StatisticsReport& statistics) {
    const std::uint64_t count = std::min(header_.count, target.maximumCount);
    if (count > kMostPoints) {
        return makeError(ErrorCode::Unsupported,
                         {file_.name(), "", countText(count, "point"),
                          fmt::format("at most {} in one scan", kMostPoints)});
    }
    if (ErrorPtr error = checkBold(count, target.work)) {
        return error;
    }
    PointSink sink(target.integration, layout_.color.has_value());
    if (ErrorPtr error = sink.resize(1, static_cast<int>(count), source_.file)) {
        return error;
    }
    WorkWatch watch(target.work);
    for (bool again = true; again;) {
        again = false;
        sink.restart();
        noticed_ = {};
        placer_ = PointPlacer(count == 0 ? Position() : originOf(source_));
        if (ErrorPtr error = pass(sink, count, watch, again)) {
            return error;
        }
    }
    const auto& scale = header_.scale;
    placer_.report(target.remarks, file_.name(),
                   {std::abs(scale[0]), std::abs(scale[1]), std::abs(scale[2])},
                   "the project's origin", "");
    if (target.metaData != nullptr) {
        fillMetaData(*target.metaData);
    }
    statistics.reflection = sink.reflectionStatistic();
    return nullptr;
}

/// A compressed file may count points by the thousand for each of its bytes. Before memory is taken
/// for so many, they are decoded once: a count that is a lie shows then.
ErrorPtr LasPointLoader::checkBold(std::uint64_t count, const DataStructures::Work& work) {
    constexpr std::uint64_t kUsualPerByte = 8;
    if (!header_.compression || count / kUsualPerByte <= file_.size()) {
        return nullptr;
    }
    WorkWatch watch({nullptr, work.cancel});
    const auto blocks = openLasBlocks(file_, header_, count);
    while (!blocks->atEnd()) {
        if (ErrorPtr error = blocks->next()) {
            return error;
        }
        if (!watch.goOn(0.0)) {
            return cancelled(file_.name());
        }
    }
    return nullptr;
}

/// @param again  set when a colour of 16 bits turned up after points whose colours were taken as 8
///               bits: everything is to be done once more
ErrorPtr LasPointLoader::pass(PointSink& sink, std::uint64_t count, WorkWatch& watch, bool& again) {
    const auto opened = openLasBlocks(file_, header_, count);
    if (source_.observer) {
        source_.observer->begin();
    }
    for (LasBlocks& blocks = *opened; !blocks.atEnd();) {
        if (ErrorPtr error = blocks.next()) {
            return error;
        }
        if (layout_.color && depth_ == ColorDepth::Eight && hasWideColor(blocks)) {
            depth_ = ColorDepth::Sixteen;
            again = blocks.first() != 0;
            if (again) {
                return nullptr;
            }
        }
        putBlock(blocks, sink);
        if (source_.observer) {
            source_.observer->take(blocks.record(0), header_.recordLength, blocks.records());
        }
        if (!watch.goOn(blocks.fraction())) {
            return cancelled(file_.name());
        }
    }
    return nullptr;
}

bool LasPointLoader::hasWideColor(const LasBlocks& blocks) const {
    for (std::uint64_t i = 0; i < blocks.records(); ++i) {
        const char* const color = blocks.record(i) + *layout_.color;
        for (std::size_t c = 0; c < kColorChannels; ++c) {
            if (channel(color, c) > kLargestByte) {
                return true;
            }
        }
    }
    return false;
}

void LasPointLoader::putBlock(const LasBlocks& blocks, PointSink& sink) {
    const unsigned shift = depth_ == ColorDepth::Sixteen ? 8 : 0;
    for (std::uint64_t i = 0; i < blocks.records(); ++i) {
        const char* const record = blocks.record(i);
        ReadPoint point;
        point.position = placer_.place(lasPosition(header_, record));
        point.reflection = loadLittle<std::uint16_t>(record + kLasIntensityOffset);
        if (layout_.color) {
            for (std::size_t c = 0; c < kColorChannels; ++c) {
                point.color[c] =
                    static_cast<std::uint8_t>(channel(record + *layout_.color, c) >> shift);
            }
        }
        if (layout_.time) {
            noticeTime(loadLittle<double>(record + *layout_.time));
        }
        sink.put(0, static_cast<int>(blocks.first() + i), point);
    }
}

void LasPointLoader::noticeTime(double time) {
    if (std::isfinite(time)) {
        noticed_.times.add(time);
    } else {
        noticed_.oddTime = true;
    }
}

/// Sets what the file knows and leaves the rest, which a project file may have set before.
void LasPointLoader::fillMetaData(VardexLib::CorvinMetaData& metaData) const {
    const std::string& system = header_.systemIdentifier;
    const bool isOperation =
        std::find(kOperations.begin(), kOperations.end(), system) != kOperations.end();
    if (!system.empty() && !isOperation) {
        metaData.ScannerModel(system);
    }
    if (!header_.generatingSoftware.empty()) {
        metaData.ProcessingSoftwareVersion(header_.generatingSoftware);
    }
    // The bit alone is not trusted: many files carry it with week seconds, or lack it with
    // adjusted time.
    if (header_.adjustedTime && !noticed_.times.empty && !noticed_.oddTime &&
        source_.clock.unit == TimeUnit::Seconds &&
        guessClock(noticed_.times).isOnly(Clock::AdjustedGps)) {
        metaData.RecordingTime(unixMicroseconds(noticed_.times.first));
    }
}

}  // namespace Ovr::Formats
