// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>
#include <cstdint>
#include <optional>

/// Point times: whole microseconds since the start of the recording in the records, seconds at
/// every public operation.
namespace Vardex::PointTime {

/// What a record's time field keeps of a time: the low 32 bits. Times from 4294.967296 s on wrap.
constexpr std::uint32_t toField(std::uint64_t microseconds) {
    return static_cast<std::uint32_t>(microseconds);
}

/// Seconds as whole microseconds, a half away from zero.
/// @return no value for seconds that are negative, not a number, or beyond 64-bit microseconds
inline std::optional<std::uint64_t> fromSeconds(double seconds) {
    constexpr double kTooLarge = 18446744073709551616.0;  // 2^64 [us]
    const double microseconds = std::round(seconds * 1e6);
    if (!(seconds >= 0.0 && microseconds < kTooLarge)) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(microseconds);
}

/// The product with 1e-6, which may differ from the quotient by 1e6 in the last bit.
constexpr double toSeconds(std::uint64_t microseconds) {
    return static_cast<double>(microseconds) * 1e-6;
}

}  // namespace Vardex::PointTime
