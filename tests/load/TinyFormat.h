// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>

#include "support/FakeFormat.h"

namespace LoadTests {

/// A file format without files: one row of points along the x axis whose times are a fixed shuffle
/// of 0, 1, 2 ... microseconds. Registered under the extension "tiny" while the object lives.
class TinyFormat {
  public:
    /// Enough points for the sort to be spread over threads.
    static constexpr int kPoints = 200'000;

    bool isRegistered() const { return format_.isRegistered(); }
    /// [us]; 7919 and the number of points have no common factor, so each time occurs once.
    static std::uint64_t timeOf(int col) {
        return static_cast<std::uint64_t>(col) * 7919 % static_cast<std::uint64_t>(kPoints);
    }

  private:
    static Ovr::ErrorPtr loadPoints(const Ovr::LoadTarget& target,
                                    Ovr::StatisticsReport& statistics) {
        if (!target.integration.setNewSize(1, kPoints, true, true)) {
            return std::make_unique<Ovr::ServiceError>(Ovr::Interfaces::ErrorCode::OutOfMemory,
                                                       "no room");
        }
        Tq_1_1::ScanPtColor<Tq_1_1::Vec3d<float>> point;
        for (int col = 0; col < kPoints; ++col) {
            point.setPosition({static_cast<float>(timeOf(col)), 0.0F, 0.0F});
            target.integration.setPoint(0, col, point);
        }
        statistics.reflection = Ovr::ValueStatistic{1.0, 9.0, 5.0, 2.0, kPoints};
        return nullptr;
    }

    static Ovr::ErrorPtr loadTimes(const Ovr::TimeTarget& target) {
        for (int col = 0; col < kPoints; ++col) {
            target.times.setTimeStamp(0, col, timeOf(col));
        }
        return nullptr;
    }

    Support::FakeFormat format_{"tiny", {loadPoints, loadTimes}};
};

}  // namespace LoadTests
