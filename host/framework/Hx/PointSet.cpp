// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/PointSet.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "Hx/IOMessages.h"
#include "Hx/PointSetOps.h"

namespace Hx {

namespace {

constexpr int kMaxReflection = 65535;

bool isIndex(ReflStatType type) {
    return type == ReflStatType::AllPoints || type == ReflStatType::VisiblePoints;
}

// A limit as the host shows it; values outside the reflection range are drawn to its ends.
int roundLimit(double limit, int without) {
    if (std::isnan(limit)) {
        return without;
    }
    return static_cast<int>(std::lround(std::clamp(limit, 0.0, double{kMaxReflection})));
}

}  // namespace

PointSet::PointSet(const Tq_1_1::String& name) : name_(name) {}

bool PointSet::isPossibleSize(int rows, int cols) {
    return rows >= 0 && cols >= 0 &&
           std::int64_t{rows} * cols <= std::numeric_limits<std::int32_t>::max();
}

std::uint64_t PointSet::getNumLoadedPoints() const {
    return hasValidData() && isPossibleSize(rows_, cols_)
               ? static_cast<std::uint64_t>(rows_) * static_cast<std::uint64_t>(cols_)
               : 0;
}

int PointSet::oSizeRows() const {
    return sizeRows();
}

int PointSet::oSizeCols() const {
    return sizeCols();
}

double PointSet::getPhiPerCol() const {
    const int cols = getNumCols();
    return cols > 0 ? getHorizontalRange() / cols : 0.0;
}

CPoint PointSet::getColRow(const Polar3d<float>& /*direction*/) const {
    return {-1, -1};
}

bool PointSet::isPointCloud() const {
    return false;
}

unsigned char PointSet::grey2Bitmap(unsigned short reflection) const {
    return static_cast<unsigned char>(reflection >> 8);
}

int PointSet::writeInfo(std::ostream& out, std::shared_ptr<WriteContextBase> context) {
    WriteToScope scope(out, std::move(context));
    scope.getMof().startValue(L"Name");
    DataOutFormat<Tq_1_1::String>(out, scope.getWriteContext()->getFormat()).put(name_);
    scope.getMof().endValue();
    return IOMessages::IO_OK;
}

void PointSet::setColorizedImage(const Tq_1_1::String& /*path*/) {}

const StatisticValLimits<double>* PointSet::getReflStat(ReflStatType type) const {
    if (!isIndex(type)) {
        return nullptr;
    }
    const auto& statistic = reflStats_[static_cast<std::size_t>(type)];
    return statistic ? &*statistic : nullptr;
}

PointSet::Color PointSet::getMapColor(unsigned short reflection) const {
    const unsigned char grey = grey2Bitmap(reflection);
    return {{grey, grey, grey, Tq_1_1::kColorFlag}};
}

bool PointSet::checkSizeConsistentWithData() const {
    return isPossibleSize(rows_, cols_) && getNumPoints() == getNumLoadedPoints();
}

bool PointSet::checkStreams() const {
    return true;
}

int PointSet::validateData() {
    const bool wasValid = std::exchange(validData_, true);
    // While the data are taken for valid every record can be addressed, so the counts can be
    // compared with what the class answers.
    const bool consistent = checkSizeConsistentWithData();
    validData_ = wasValid;
    int result = consistent ? IOMessages::IO_OK : IOMessages::IO_INVALID_VALUE;
    for (const auto& [type, check] : PointSetOps::Validate::validateData.entries) {
        if (IOMessages::isKnownFailure(result)) {
            break;
        }
        if (type == nullptr || getClassType()->isDerivedFrom(type)) {
            const int answer = check(this);
            result =
                IOMessages::isKnownFailure(answer) || result == IOMessages::IO_OK ? answer : result;
        }
    }
    validData_ = !IOMessages::isKnownFailure(result);
    return result;
}

void PointSet::setReflStat(const StatisticValLimits<double>& statistic, bool valid,
                           ReflStatType type, int /*value*/) {
    if (isIndex(type)) {
        reflStats_[static_cast<std::size_t>(type)] = statistic;
        properties_.setReflStatValid(valid);
    }
}

void PointSet::setDistStat(const StatisticValLimitsRounded<double>& statistic, bool valid) {
    distStat_ = statistic;
    properties_.setDistStatValid(valid);
}

const StatisticValLimitsRounded<double>* PointSet::getDistStat() const {
    return distStat_ ? &*distStat_ : nullptr;
}

int PointSet::getMinReflection() const {
    const StatisticValLimits<double>* statistic = getReflStat(ReflStatType::AllPoints);
    return statistic == nullptr ? 0 : roundLimit(statistic->minimum, 0);
}

int PointSet::getMaxReflection() const {
    const StatisticValLimits<double>* statistic = getReflStat(ReflStatType::AllPoints);
    return statistic == nullptr ? kMaxReflection : roundLimit(statistic->maximum, kMaxReflection);
}

std::uint64_t PointSet::getDefaultNumLoadPoints() {
    return std::numeric_limits<std::uint64_t>::max();
}

}  // namespace Hx
