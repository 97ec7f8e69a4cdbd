// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "pointset/RecordingTime.h"

#include <cmath>

namespace Vardex::RecordingTime {

namespace {

constexpr std::int64_t kMicrosecondsPerSecond = 1'000'000;
constexpr std::uint64_t kTicksPerMicrosecond = 10;
constexpr double kSecondsPerTick = 1e-7;
// Full seconds whose microseconds, with any fraction added, stay within 64 bits.
constexpr double kMaxFullSeconds = 9'223'372'036'853.0;

}  // namespace

std::optional<std::int64_t> microsecondsOf(double seconds) {
    const double full = std::floor(seconds);
    if (!(std::abs(full) <= kMaxFullSeconds)) {
        return std::nullopt;
    }
    const double fraction = (seconds - full) * static_cast<double>(kMicrosecondsPerSecond);
    return static_cast<std::int64_t>(full) * kMicrosecondsPerSecond +
           static_cast<std::int64_t>(fraction);
}

double secondsOf(std::int64_t microseconds) {
    const auto ticks =
        static_cast<std::int64_t>(static_cast<std::uint64_t>(microseconds) * kTicksPerMicrosecond);
    return static_cast<double>(ticks) * kSecondsPerTick;
}

}  // namespace Vardex::RecordingTime
