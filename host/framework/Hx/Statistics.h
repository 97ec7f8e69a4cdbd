// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace Hx {

/// Statistics of a value with its limits, in the value's unit; the standard deviation.
template <typename T>
struct StatisticValLimits {
    T minimum{};
    T maximum{};
    T mean{};
    T deviation{};
    std::uint64_t count = 0;
};

/// The same, for values that the host shows rounded.
template <typename T>
struct StatisticValLimitsRounded {
    T minimum{};
    T maximum{};
    T mean{};
    T deviation{};
    std::uint64_t count = 0;
};

/// Which points a reflection statistic covers.
enum class ReflStatType : std::int32_t { AllPoints = 0, VisiblePoints = 1 };

/// Which derived properties of a scan are up to date.
class ScanProperties {
  public:
    bool checkReflStatValid() const { return reflStatValid_; }
    bool checkDistStatValid() const { return distStatValid_; }
    void setReflStatValid(bool valid) { reflStatValid_ = valid; }
    void setDistStatValid(bool valid) { distStatValid_ = valid; }

  private:
    bool reflStatValid_ = false;
    bool distStatValid_ = false;
};

}  // namespace Hx
