// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "pointset/core/RecordingTime.h"

#include <cmath>
#include <limits>

namespace Vardex::RecordingTime {

namespace {

constexpr std::int64_t kMicrosecondsPerSecond = 1'000'000;
constexpr std::uint64_t kTicksPerMicrosecond = 10;
constexpr double kSecondsPerTick = 1e-7;
// Full seconds beyond which 64 bits cannot hold the microseconds.
constexpr double kMaxFullSeconds = 9'223'372'036'854.0;

}  // namespace

std::optional<std::int64_t> microsecondsOf(double seconds) {
    const double full = std::floor(seconds);
    if (!(std::abs(full) <= kMaxFullSeconds)) {
        return std::nullopt;
    }
    const std::int64_t whole = static_cast<std::int64_t>(full) * kMicrosecondsPerSecond;
    const auto fraction =
        static_cast<std::int64_t>((seconds - full) * static_cast<double>(kMicrosecondsPerSecond));
    if (whole > std::numeric_limits<std::int64_t>::max() - fraction) {
        return std::nullopt;
    }
    return whole + fraction;
}

double secondsOf(std::int64_t microseconds) {
    const auto ticks =
        static_cast<std::int64_t>(static_cast<std::uint64_t>(microseconds) * kTicksPerMicrosecond);
    return static_cast<double>(ticks) * kSecondsPerTick;
}

}  // namespace Vardex::RecordingTime
