// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "ptx/PtxPoint.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string_view>

#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

constexpr double kLargestReflection = 65535.0;
constexpr double kLargestChannel = 255.0;
constexpr double kLargestCoordinate = std::numeric_limits<float>::max();
/// What single precision may take from a coordinate before it is worth a word [m].
constexpr double kTolerableLoss = 0.001;

}  // namespace

ErrorPtr PtxPointParser::start(const TextLines& lines) {
    fields_ = splitFields(lines.text(), {});
    if (fields_ == 4 || fields_ == kColorFields || fields_ == kMostFields) {
        return nullptr;
    }
    return lines.fault(ErrorCode::WrongFormat, countText(fields_, "field"),
                       "4, 7 or 10: x y z intensity [r g b [nx ny nz]]");
}

ErrorPtr PtxPointParser::readNumbers(const TextLines& lines, double (&numbers)[kMostFields]) const {
    std::array<std::string_view, kMostFields> fields;
    const std::size_t count = splitFields(lines.text(), fields);
    if (count != fields_) {
        return lines.fault(ErrorCode::WrongFormat, countText(count, "field"),
                           std::to_string(fields_) + ", as in the scan's first line");
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (!parseNumber(fields[i], numbers[i])) {
            return lines.fault(ErrorCode::InvalidValue,
                               inQuotes(fields[i]) + " as field " + std::to_string(i + 1),
                               "a finite number");
        }
    }
    return nullptr;
}

ErrorPtr PtxPointParser::parse(const TextLines& lines, ReadPoint& point, bool& isReturn) {
    double numbers[kMostFields] = {};
    if (ErrorPtr error = readNumbers(lines, numbers)) {
        return error;
    }
    isReturn = numbers[0] != 0.0 || numbers[1] != 0.0 || numbers[2] != 0.0;
    if (!isReturn) {
        return nullptr;
    }
    if (ErrorPtr error = setPosition(lines, numbers, point)) {
        return error;
    }
    const double intensity = std::clamp(numbers[3], 0.0, 1.0);
    if (intensity != numbers[3]) {
        oddIntensity_.add(lines.line(), std::abs(numbers[3]));
    }
    point.reflection = static_cast<std::uint16_t>(std::round(intensity * kLargestReflection));
    if (fields_ >= kColorFields) {
        for (std::size_t c = 0; c < point.color.size(); ++c) {
            point.color[c] = colorOf(numbers[4 + c], lines.line());
        }
    }
    if (fields_ == kMostFields) {
        point.normal =
            Tq_1_1::UnitVec3d<double>::fromDirection({numbers[7], numbers[8], numbers[9]});
    }
    return nullptr;
}

ErrorPtr PtxPointParser::setPosition(const TextLines& lines, const double (&numbers)[kMostFields],
                                     ReadPoint& point) {
    double loss = 0.0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double value = numbers[axis];
        if (std::abs(value) > kLargestCoordinate) {
            return lines.fault(ErrorCode::InvalidValue, "the coordinate " + numberText(value),
                               "at most " + numberText(kLargestCoordinate));
        }
        const auto narrowed = static_cast<float>(value);
        point.position[axis] = narrowed;
        loss = std::max(loss, std::abs(value - narrowed));
    }
    if (loss > kTolerableLoss) {
        lostPrecision_.add(lines.line(), loss);
    }
    distance_ =
        std::sqrt(numbers[0] * numbers[0] + numbers[1] * numbers[1] + numbers[2] * numbers[2]);
    return nullptr;
}

std::uint8_t PtxPointParser::colorOf(double value, std::uint64_t line) {
    const double cut = std::clamp(value, 0.0, kLargestChannel);
    if (cut != value) {
        oddColor_.add(line, std::abs(value));
    }
    return static_cast<std::uint8_t>(std::round(cut));
}

std::vector<std::string> PtxPointParser::findings(const std::string& file) const {
    std::vector<std::string> lines;
    if (oddIntensity_.count != 0) {
        lines.push_back(file + ": intensities of " + countText(oddIntensity_.count, "point") +
                        " outside 0 .. 1 were cut" + oddIntensity_.where());
    }
    if (oddColor_.count != 0) {
        lines.push_back(file + ": " + countText(oddColor_.count, "colour channel") +
                        " outside 0 .. 255 were cut" + oddColor_.where());
    }
    if (lostPrecision_.count != 0) {
        lines.push_back(file + ": " + countText(lostPrecision_.count, "point") +
                        " so far from the scanner that single precision loses up to " +
                        numberText(lostPrecision_.extreme, 3) + " m" + lostPrecision_.where());
    }
    return lines;
}

}  // namespace Ovr::Formats
