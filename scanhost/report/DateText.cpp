// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "report/DateText.h"

#include <chrono>
#include <cmath>
#include <cstdint>

#include "report/NumberText.h"

namespace ScanHost {

namespace {

// The years 0 to 9999.
constexpr double kEarliest = -62167219200.0;
constexpr double kLatest = 253402300799.0;

std::string padded(std::int64_t value, std::size_t width) {
    const std::string text = std::to_string(value);
    return std::string(text.size() < width ? width - text.size() : 0, '0') + text;
}

}  // namespace

std::string dateText(double unixSeconds) {
    if (!(unixSeconds >= kEarliest && unixSeconds <= kLatest)) {
        return shortText(unixSeconds) + " s";
    }
    using namespace std::chrono;
    const sys_seconds time{seconds{static_cast<std::int64_t>(std::floor(unixSeconds))}};
    const sys_days day = floor<days>(time);
    const year_month_day date{day};
    const hh_mm_ss clock{time - day};
    return padded(static_cast<int>(date.year()), 4) + '-' +
           padded(static_cast<unsigned>(date.month()), 2) + '-' +
           padded(static_cast<unsigned>(date.day()), 2) + ' ' + padded(clock.hours().count(), 2) +
           ':' + padded(clock.minutes().count(), 2) + ':' + padded(clock.seconds().count(), 2) +
           " UTC";
}

}  // namespace ScanHost
