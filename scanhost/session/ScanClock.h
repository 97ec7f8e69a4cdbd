// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "Ovr/Clock.h"

#include "report/Report.h"

namespace ScanHost {

/// How the user wants times to be printed and means those that he gives.
struct TimeOptions {
    bool absolute = false;         ///< as the points file counts them
    std::optional<double> origin;  ///< from this time of the points file's clock on [s]
};

/// The clock of a scan's points file next to scan time. Only what is printed and taken is on it:
/// the module's times stay scan times.
class ScanClock {
  public:
    /// Shows scan times.
    ScanClock() = default;
    /// @param zero  scan time 0 on the trajectory's clock [s]
    ScanClock(const Ovr::ClockSettings& settings, double zero, const TimeOptions& options);

    /// Takes a clock for that of the points file, for dates alone, unless the user has named one.
    void assume(Ovr::Clock clock) { settings_.points = settings_.points.value_or(clock); }

    /// A scan time as it is printed [s], and a time that the user gives as a scan time.
    double shown(double scanTime) const { return scanTime + shift_; }
    double taken(double time) const { return time - shift_; }

    /// Scan time 0 on the clock of the points file [s].
    double zero() const { return zero_; }
    /// The date of a scan time; empty when the clock is not known well enough.
    std::string dateOf(double scanTime) const;

    /// Says what printed times count from, unless they are scan times.
    void describe(Report& report) const;

  private:
    Ovr::ClockSettings settings_;
    TimeOptions options_;
    double zero_ = 0.0;
    double shift_ = 0.0;
};

/// Adds scan time 0 on the clock of the points file, and its date where that is known.
void describeZero(const ScanClock& clock, Report& report);

}  // namespace ScanHost
