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

std::uint64_t TimeOrder::finish(std::vector<std::uint32_t>& ranks, std::uint32_t first) {
    {
        const Hx::PointWriteLock lock = points_->lockPoints(kLockTimeout);
        if (!lock.isHeld()) {
            throw Failure("the points to sort are in use");
        }
        points_->sortScanPointsByTime(lock);
    }
    // The sort leaves points of one time in any order.
    std::uint64_t sharing = 0;
    std::vector<std::uint32_t> equals;
    for (std::uint64_t begin = 0; begin < added_;) {
        const double time = timeAt(begin);
        equals.assign(1, numberAt(begin));
        while (begin + equals.size() < added_ && timeAt(begin + equals.size()) == time) {
            equals.push_back(numberAt(begin + equals.size()));
        }
        sharing += equals.size() > 1 ? equals.size() : 0;
        std::sort(equals.begin(), equals.end());
        for (const std::uint32_t number : equals) {
            ranks[number] = first + static_cast<std::uint32_t>(begin++);
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
