// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "report/DateText.h"

#include <chrono>
#include <cmath>
#include <cstdint>

#include <date/date.h>
#include <fmt/format.h>

#include "report/NumberText.h"

namespace ScanHost {

namespace {

// The years 0 to 9999.
constexpr double kEarliest = -62167219200.0;
constexpr double kLatest = 253402300799.0;

}  // namespace

std::string dateText(double unixSeconds) {
    if (!(unixSeconds >= kEarliest && unixSeconds <= kLatest)) {
        return fmt::format("{} s", shortText(unixSeconds));
    }
    const std::chrono::seconds seconds{static_cast<std::int64_t>(std::floor(unixSeconds))};
    return date::format("%F %T UTC", date::sys_seconds{seconds});
}

}  // namespace ScanHost
