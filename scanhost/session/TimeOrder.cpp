// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/TimeOrder.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <string>

#include "Ovr/Vardex/CorvinMobileScanData.h"

#include "report/Failure.h"
#include "session/Require.h"

namespace ScanHost {

namespace {

/// Longest wait for the points' write lock [ms].
constexpr int kLockTimeout = 5000;

}  // namespace

void TimeOrder::begin(std::uint64_t count) {
    points_ = std::dynamic_pointer_cast<Vardex::CorvinMobilePointSet>(session_.createPointSet(
        Ovr::VardexLib::CorvinMobileScanData::getStaticPointSetClassIdentifier()));
    added_ = 0;
    requireOk(points_->enableTimeStamps(true), "the module's point times");
    const bool fits = count <= static_cast<std::uint64_t>(std::numeric_limits<int>::max());
    if (!fits || !points_->resizePointStorage(1, static_cast<int>(count), true, false)) {
        throw Failure("there is not enough memory for the order of the points");
    }
    points_->setValidData(true);
}

void TimeOrder::add(std::uint32_t number, double seconds) {
    points_->setColor(added_, std::bit_cast<Hx::PointSet::Color>(number));
    points_->setScanPtTime(0, static_cast<int>(added_), seconds);
    ++added_;
}

void TimeOrder::sort() {
    const Hx::PointWriteLock lock = points_->lockPoints(kLockTimeout);
    if (!lock.isHeld()) {
        throw Failure("the points to sort are in use");
    }
    points_->sortScanPointsByTime(lock);
}

std::uint64_t TimeOrder::finish(std::span<std::uint32_t> numbers) {
    if (added_ != numbers.size()) {
        throw Failure("the times have changed while they were read");
    }
    sort();
    std::uint64_t sharing = 0;
    double time = added_ > 0 ? timeAt(0) : 0.0;
    for (std::uint64_t begin = 0, end = 0; begin < added_; begin = end) {
        const double shared = time;
        while (end < added_ && time == shared) {
            numbers[end] = numberAt(end);
            ++end;
            time = end < added_ ? timeAt(end) : time;
        }
        if (end - begin > 1) {  // the sort leaves points of one time in any order
            sharing += end - begin;
            std::sort(&numbers[begin], &numbers[end - 1] + 1);
        }
    }
    points_ = nullptr;
    return sharing;
}

std::uint32_t TimeOrder::numberAt(std::uint64_t place) const {
    return std::bit_cast<std::uint32_t>(points_->getColor(place));
}

double TimeOrder::timeAt(std::uint64_t place) const {
    double seconds = 0.0;
    points_->getScanPtTime(0, static_cast<int>(place), seconds);
    return seconds;
}

}  // namespace ScanHost
