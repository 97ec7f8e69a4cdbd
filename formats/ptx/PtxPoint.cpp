// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "ptx/PtxPoint.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "kit/NumberLine.h"
#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

constexpr double kLargestReflection = 65535.0;
/// Steps of coordinates that are worth a word when single precision makes them: it may move a
/// coordinate by half of one [m].
constexpr double kResolution = 0.002;

}  // namespace

void PtxFindings::merge(const PtxFindings& later) {
    largestChannel = std::max(largestChannel, later.largestChannel);
    anyFraction = anyFraction || later.anyFraction;
    oddIntensity.merge(later.oddIntensity);
    oddColor.merge(later.oddColor);
    placer.merge(later.placer);
}

ErrorPtr PtxPointParser::start(const TextLine& line) {
    fields_ = splitFields(line.text, {});
    if (fields_ == 4 || fields_ == kColorFields || fields_ == kMostFields) {
        return nullptr;
    }
    return line.fault(ErrorCode::WrongFormat, countText(fields_, "field"),
                      "4, 7 or 10: x y z intensity [r g b [nx ny nz]]");
}

ErrorPtr PtxPointParser::parse(const TextLine& line, PtxPoint& point, PtxFindings& findings) const {
    std::array<double, kMostFields> numbers{};
    if (ErrorPtr error =
            readNumbers(line, std::span(numbers).first(fields_), ", as in the scan's first line")) {
        return error;
    }
    point.isReturn = numbers[0] != 0.0 || numbers[1] != 0.0 || numbers[2] != 0.0;
    if (!point.isReturn) {
        return nullptr;
    }
    ReadPoint& read = point.point;
    if (ErrorPtr error =
            findings.placer.place(line, {numbers[0], numbers[1], numbers[2]}, read.position)) {
        return error;
    }
    point.distance =
        std::sqrt(numbers[0] * numbers[0] + numbers[1] * numbers[1] + numbers[2] * numbers[2]);
    const double intensity = std::clamp(numbers[3], 0.0, 1.0);
    if (intensity != numbers[3]) {
        findings.oddIntensity.add(line.number, std::abs(numbers[3]));
    }
    read.reflection = static_cast<std::uint16_t>(std::round(intensity * kLargestReflection));
    if (fields_ >= kColorFields) {
        for (std::size_t c = 0; c < read.color.size(); ++c) {
            read.color[c] = colorOf(numbers[4 + c], line.number, findings);
        }
    }
    if (fields_ == kMostFields) {
        read.normal =
            Tq_1_1::UnitVec3d<double>::fromDirection({numbers[7], numbers[8], numbers[9]});
    }
    return nullptr;
}

std::uint8_t PtxPointParser::colorOf(double value, std::uint64_t line,
                                     PtxFindings& findings) const {
    findings.largestChannel = std::max(findings.largestChannel, value);
    findings.anyFraction = findings.anyFraction || (value > 0.0 && value < 1.0);
    const double scaled = value * channelScale_;
    const double cut = std::clamp(scaled, 0.0, kLargestChannel);
    if (cut != scaled) {
        findings.oddColor.add(line, std::abs(value));
    }
    return static_cast<std::uint8_t>(std::round(cut));
}

void PtxPointParser::remark(const PtxFindings& findings, Remarks& remarks,
                            const std::string& file) const {
    if (channelScale_ != 1.0) {
        remarks.warn(fmt::format(
            "{}: the scan's colours are fractions 0 .. 1; they are taken times 255", file));
    }
    if (findings.oddIntensity.count != 0) {
        remarks.warn(fmt::format(
            "{}: intensities of {} outside 0 .. 1, the farthest {:.9g} away from 0, were cut to 0 "
            "or 1, first at line {}; 0 .. 1 become reflections of 0 .. 65535",
            file, countText(findings.oddIntensity.count, "point"), findings.oddIntensity.extreme,
            findings.oddIntensity.first));
    }
    if (findings.oddColor.count != 0) {
        remarks.warn(fmt::format("{}: {} outside 0 .. {:.9g}, cut to that, first at line {}", file,
                                 countText(findings.oddColor.count, "colour channel"),
                                 kLargestChannel / channelScale_, findings.oddColor.first));
    }
    findings.placer.report(remarks, file, {kResolution, kResolution, kResolution}, "the scanner",
                           " m");
}

}  // namespace Ovr::Formats
