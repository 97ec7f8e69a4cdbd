// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/RecordingTime.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Ovr::Formats {

namespace {

constexpr double kAdjustment = 1e9;            // [s]
constexpr double kGpsEpochInUnix = 315964800;  // 1980-01-06 [s]
constexpr double kMicrosecondsPerSecond = 1e6;

/// GPS times at which UTC had fallen one more second behind: the midnights after the leap seconds
/// of 1981 to 2016, published by the IERS in its Bulletin C.
constexpr std::array<double, 18> kLeapSeconds{
    46828801,  78364802,  109900803, 173059204,  252028805,  315187206,
    346723207, 393984008, 425520009, 457056010,  504489611,  551750412,
    599184013, 820108814, 914803215, 1025136016, 1119744017, 1167264018};

}  // namespace

std::int64_t unixMicroseconds(double adjusted) {
    const double gps = adjusted + kAdjustment;
    const auto leaps =
        std::upper_bound(kLeapSeconds.begin(), kLeapSeconds.end(), gps) - kLeapSeconds.begin();
    const double seconds = gps + kGpsEpochInUnix - static_cast<double>(leaps);
    return static_cast<std::int64_t>(std::llround(seconds * kMicrosecondsPerSecond));
}

}  // namespace Ovr::Formats
