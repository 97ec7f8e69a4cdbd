// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

#include "mobile/CorvinMobilePointSet.h"

namespace SortFaults {

/// Points of a small and of a large scan. The thread sanitizer remembers only so many steps of a
/// thread: of a large sort it could not say any more which of them were oneTBB's.
#if defined(__SANITIZE_THREAD__)
inline constexpr int kFewPoints = 1'000;
inline constexpr int kManyPoints = 3'000;
#else
inline constexpr int kFewPoints = 20'000;
inline constexpr int kManyPoints = 1'000'000;
#endif

/// A mobile scan whose points come in random order of time. Each point's x is its number before the
/// sort.
class ShuffledScan {
  public:
    explicit ShuffledScan(int points) : micros_(static_cast<std::size_t>(points)) {
        std::iota(micros_.begin(), micros_.end(), 0);
        std::shuffle(micros_.begin(), micros_.end(), std::mt19937(11));
        static_cast<void>(set_->enableTimeStamps(true));
        static_cast<void>(set_->resizePointStorage(1, points, true, false));
        static_cast<void>(set_->validateData());
        Vardex::CorvinMobilePointSet::ScanPt point;
        for (int col = 0; col < points; ++col) {
            point.x = static_cast<float>(col);
            set_->setScanPt(0, col, point);
            set_->setScanPtTime(0, col, micros_[static_cast<std::size_t>(col)] * 1e-6);
        }
    }

    Hx::PointWriteLock lock(int timeout = 5000) { return set_->lockPoints(timeout); }
    void sort() { set_->sortScanPointsByTime(lock()); }

    /// Whether the points are in order of time, none is lost, and each has kept its own time.
    bool isSorted() const {
        int misplaced = 0;
        for (int col = 0; col < static_cast<int>(micros_.size()); ++col) {
            double seconds = 0.0;
            set_->getScanPtTime(0, col, seconds);
            const auto number = static_cast<std::size_t>(set_->getScanPt(0, col).x);
            misplaced += std::lround(seconds * 1e6) != col || micros_[number] != col;
        }
        return misplaced == 0;
    }

  private:
    std::vector<int> micros_;
    std::shared_ptr<Vardex::CorvinMobilePointSet> set_ =
        std::make_shared<Vardex::CorvinMobilePointSet>(L"walk");
};

}  // namespace SortFaults
