// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/ScanClock.h"

#include <fmt/format.h>

#include "kit/GpsTime.h"
#include "kit/PointClock.h"

#include "report/DateText.h"
#include "report/NumberText.h"

namespace ScanHost {

namespace {

/// @param time  on the trajectory's clock [s]
/// @return on the points' clock [s]
double onPointsClock(const Ovr::ClockSettings& settings, double time) {
    // The step between the clocks depends on the time through the leap seconds alone.
    const double nearby = time - Ovr::Formats::clockShift(settings, time);
    return time - Ovr::Formats::clockShift(settings, nearby);
}

}  // namespace

ScanClock::ScanClock(const Ovr::ClockSettings& settings, double zero, const TimeOptions& options)
    : settings_(settings), options_(options), zero_(onPointsClock(settings, zero)) {
    if (options.origin) {
        shift_ = zero_ - *options.origin;
    } else if (options.absolute) {
        shift_ = zero_;
    }
}

std::optional<double> ScanClock::utcOf(double scanTime) const {
    const auto gps = settings_.points ? Ovr::Formats::gpsTime(zero_ + scanTime, *settings_.points,
                                                              settings_.week)
                                      : std::optional<double>();
    return gps ? Ovr::Formats::timeOnClock(*gps, Ovr::Clock::Utc, {}) : std::nullopt;
}

std::string ScanClock::dateOf(double scanTime) const {
    const auto utc = utcOf(scanTime);
    return utc ? dateText(*utc) : std::string();
}

void ScanClock::describe(Report& report) const {
    if (options_.origin) {
        report.add("timeOrigin", "times count from", jsonNumber(*options_.origin),
                   fmt::format("{} s of the points file's clock", shortText(*options_.origin)));
    } else if (options_.absolute) {
        report.add("timeOrigin", "times are", jsonNumber(0.0), "those of the points file");
    }
}

void describeZero(const ScanClock& clock, Report& report) {
    const std::string date = clock.dateOf(0.0);
    Json::Value value;
    value["time"] = jsonNumber(clock.zero());
    value["date"] = date.empty() ? Json::Value() : Json::Value(date);
    report.add("timeZero", "scan time 0", value,
               fmt::format("{} s in the file{}", fixedText(clock.zero(), kSecondDigits),
                           date.empty() ? "" : fmt::format(", {}", date)));
}

}  // namespace ScanHost
