// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasPoints.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>

#include "kit/LittleEndian.h"
#include "kit/RecordingTime.h"
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

/// Coordinates of a record in the file's frame [m].
Position position(const LasHeader& header, const char* record) {
    Position place;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const auto raw = loadLittle<std::int32_t>(record + 4 * axis);
        place[axis] = raw * header.scale[axis] + header.offset[axis];
    }
    return place;
}

/// A place in the middle of the points, where single precision serves them best: that of the
/// header's bounds if they hold the first point, for some writers leave them empty.
Position middleOf(const LasHeader& header, const Position& first) {
    Position middle;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double minimum = header.minimum[axis];
        const double maximum = header.maximum[axis];
        const double slack = std::abs(header.scale[axis]);
        middle[axis] = minimum + (maximum - minimum) / 2;
        const bool holds = minimum - slack <= first[axis] && first[axis] <= maximum + slack;
        if (!holds || !std::isfinite(middle[axis])) {
            return first;
        }
    }
    return middle;
}

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
                          "at most " + std::to_string(kMostPoints) + " in one scan"});
    }
    PointSink sink(target.integration, layout_.color.has_value());
    if (ErrorPtr error = sink.resize(1, static_cast<int>(count), source_.file)) {
        return error;
    }
    if (count != 0) {
        if (ErrorPtr error = chooseOrigin()) {
            return error;
        }
    }
    WorkWatch watch(target.work);
    for (bool again = true; again;) {
        again = false;
        sink.restart();
        noticed_ = {};
        if (ErrorPtr error = pass(sink, count, watch, again)) {
            return error;
        }
    }
    reportPrecision(target.remarks);
    if (target.metaData != nullptr) {
        fillMetaData(*target.metaData);
    }
    statistics.reflection = sink.reflectionStatistic();
    return nullptr;
}

ErrorPtr LasPointLoader::chooseOrigin() {
    if (!source_.project) {
        return nullptr;
    }
    LasBlocks one(file_, header_, 1);
    if (ErrorPtr error = one.next()) {
        return error;
    }
    origin_ = source_.project->chooseOrigin(middleOf(header_, position(header_, one.record(0))));
    return nullptr;
}

/// @param again  set when a colour of 16 bits turned up behind points whose colours were taken as 8
///               bits: everything is to be done once more
ErrorPtr LasPointLoader::pass(PointSink& sink, std::uint64_t count, WorkWatch& watch, bool& again) {
    LasBlocks blocks(file_, header_, count);
    while (!blocks.atEnd()) {
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
        const Position place = position(header_, record) - origin_;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            noticed_.largest[axis] = std::max(noticed_.largest[axis], std::abs(place[axis]));
        }
        ReadPoint point;
        point.position = {static_cast<float>(place.x), static_cast<float>(place.y),
                          static_cast<float>(place.z)};
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

void LasPointLoader::reportPrecision(Remarks& remarks) const {
    constexpr std::string_view kAxes = "xyz";
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const auto largest = static_cast<float>(noticed_.largest[axis]);
        const float spacing =
            std::nextafter(largest, std::numeric_limits<float>::infinity()) - largest;
        const double resolution = std::abs(header_.scale[axis]);
        if (spacing > resolution) {
            remarks.warn(file_.name() + ": the resolution of " + numberText(resolution, 3) +
                         " m in " + std::string(1, kAxes[axis]) +
                         " is lost: single precision keeps steps of " + numberText(spacing, 3) +
                         " m at up to " + numberText(largest, 6) + " m from the project's origin");
        }
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
    // The bit alone is not trusted: many files carry it beside week seconds, or lack it beside
    // adjusted time.
    if (header_.adjustedTime && !noticed_.times.empty && !noticed_.oddTime &&
        source_.clock.unit == TimeUnit::Seconds &&
        clockKind(noticed_.times) == ClockKind::AdjustedGps) {
        metaData.RecordingTime(unixMicroseconds(noticed_.times.first));
    }
}

}  // namespace Ovr::Formats
