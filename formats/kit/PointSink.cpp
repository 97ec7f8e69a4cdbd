// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/PointSink.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "Tq/ScanPtColor.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
using ScanPoint = Tq_1_1::ScanPtColor<Tq_1_1::Vec3d<float>>;

void StatisticBuilder::add(double value) {
    if (count_++ == 0) {
        first_ = value;
        minimum_ = value;
        maximum_ = value;
    }
    const double difference = value - first_;
    sum_ += difference;
    sumOfSquares_ += difference * difference;
    minimum_ = std::min(minimum_, value);
    maximum_ = std::max(maximum_, value);
}

ValueStatistic StatisticBuilder::result() const {
    if (count_ == 0) {
        return {};
    }
    const double n = static_cast<double>(count_);
    const double mean = sum_ / n;
    const double variance = std::max(0.0, sumOfSquares_ / n - mean * mean);
    return {minimum_, maximum_, first_ + mean, std::sqrt(variance), count_};
}

PointSink::PointSink(Interfaces::IScanIntegration& integration, bool colored)
    : integration_(integration),
      colored_(colored && integration.storesColor()),
      separateReflection_(colored_ && integration.storesReflection()) {}

ErrorPtr PointSink::resize(int rows, int cols, const std::filesystem::path& file) {
    if (integration_.setNewSize(rows, cols, true, separateReflection_)) {
        return nullptr;
    }
    return makeError(ErrorCode::OutOfMemory,
                     {file.string(), "", fmt::format("a grid of {} x {} points", rows, cols),
                      "a size that the point set takes and memory holds"});
}

void PointSink::put(int row, int col, const ReadPoint& point) {
    ScanPoint record;
    record.setPosition(point.position);
    record.normal = point.normal;
    if (colored_) {
        record.color = {{point.color[0], point.color[1], point.color[2], Tq_1_1::kColorFlag}};
    } else {
        record.color[0] = static_cast<unsigned char>(point.reflection);
        record.color[1] = static_cast<unsigned char>(point.reflection >> 8U);
    }
    integration_.setPoint(row, col, record);
    if (separateReflection_) {
        integration_.setReflection(row, col, point.reflection);
    }
    reflections_.add(point.reflection);
}

void PointSink::putNull(int row, int col) {
    integration_.setPoint(row, col, ScanPoint::nullReference);
}

std::optional<ValueStatistic> PointSink::reflectionStatistic() const {
    const ValueStatistic found = reflections_.result();
    if (found.maximum == 0.0) {
        return std::nullopt;
    }
    return found;
}

}  // namespace Ovr::Formats
