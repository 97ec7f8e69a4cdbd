// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include "Ovr/Vardex/CorvinMobileScanData.h"
#include "Ovr/Vardex/CorvinStanceScanData.h"
#include "support/MemoryScan.h"

namespace Support {

/// Scan data on a MemoryScan, and what their operations answered.
template <typename ScanData>
struct LoadedScan {
    using MetaData =
        std::conditional_t<std::is_same_v<ScanData, Ovr::VardexLib::CorvinStanceScanData>,
                           Ovr::VardexLib::CorvinStanceMetaData,
                           Ovr::VardexLib::CorvinMobileMetaData>;

    MemoryScan memory;
    ScanData data{memory};
    Ovr::StatisticsReport statistics;
    std::shared_ptr<MemoryTimes> times;

    explicit LoadedScan(Ovr::ScanSource source) { memory.source = std::move(source); }

    Ovr::ErrorPtr loadPoints(std::uint64_t count = ~std::uint64_t{0}) {
        const auto scope = data.createModificationScope({});
        const auto lock = memory.getPointDataWriteLock(0);
        return data.loadPoints(count, statistics, *scope, *lock);
    }
    /// Lends a times service of the size of the records.
    Ovr::ErrorPtr loadTimes() {
        times = std::make_shared<MemoryTimes>(memory.records.size());
        data.getServiceRegistry().template registerService<Ovr::VardexLib::IScanPointTimes>(times);
        const auto scope = data.createModificationScope({});
        const auto lock = memory.getPointDataWriteLock(0);
        const auto access = memory.getPointDataExclusiveAccess(*lock);
        return data.loadTimeStamps(*access, *scope, nullptr, nullptr);
    }
    MetaData& metaData() const { return dynamic_cast<MetaData&>(*data.getMetaData()); }
    /// All warnings in one text.
    std::string warnings() const {
        std::string text;
        for (const std::string& line : data.getWarnings()) {
            text += line + "\n";
        }
        return text;
    }
};

using MobileScan = LoadedScan<Ovr::VardexLib::CorvinMobileScanData>;
using StanceScan = LoadedScan<Ovr::VardexLib::CorvinStanceScanData>;

/// Counts what it is asked and told; cancels at the n-th question, if n is not 0.
class CountingWatch final : public Ovr::DataStructures::IProgress,
                            public Ovr::DataStructures::ICancelInfo {
  public:
    explicit CountingWatch(int cancelAt = 0) : cancelAt_(cancelAt) {}

    int told = 0;
    double last = 0.0;
    bool fell = false;

    void setFraction(double fraction) override {
        ++told;
        fell = fell || fraction < last;
        last = fraction;
    }
    bool isCancelled() const override { return ++asked_ == cancelAt_; }

  private:
    int cancelAt_;
    mutable int asked_ = 0;
};

}  // namespace Support
