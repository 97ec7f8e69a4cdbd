// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "report/Console.h"
#include "report/Report.h"
#include "session/Box.h"
#include "session/ImportedScan.h"
#include "session/MobileScan.h"

namespace ScanHost {

/// What is known of the times and the path of a mobile scan.
class MobileReport {
  public:
    /// Loads trajectory and times. Where that fails, a warning says why and the rest is shown all
    /// the same. A trajectory that was named and cannot be read is a Failure.
    /// @param scan     a mobile one; outlives this
    /// @param console  outlives this
    MobileReport(const ImportedScan& scan, Console& console);

    /// Adds scan time 0 on the clock of the points file.
    /// @param said  the clock that the file says it has; it gives dates when the times look like it
    void describeClock(std::optional<Ovr::Clock> said, Report& report) const;
    /// Adds duration, earliest and latest point.
    /// @param range  of the points' times [s, scan time]
    void describeTimes(const Range<double>& range, Report& report) const;
    /// Adds the trajectory; warns when it lies far from the points.
    /// @param points  bounds of the points [world]
    void describePath(const Box& points, Report& report) const;

  private:
    void loadTrajectory();
    void loadTimes();

    const ImportedScan& scan_;
    Console& console_;
    MobileScan mobile_;
    bool hasTimes_ = false;
    std::string noPath_;   ///< why there is no trajectory; empty when there is one
    std::string noTimes_;  ///< why there are no times
};

}  // namespace ScanHost
