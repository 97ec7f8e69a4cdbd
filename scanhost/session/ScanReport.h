// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "report/Console.h"
#include "report/Report.h"
#include "session/ImportedScan.h"

namespace ScanHost {

/// Writes what a scan holds into a report: file, clock, place, coordinate system, times and path
/// first, then light, metadata and what its file says. A mobile scan's trajectory and times are
/// loaded for it. Where that fails, a warning says why and the rest is shown all the same. A
/// trajectory that was named and cannot be read is a Failure.
/// @param forHost  add what the module says to a host, too
void describeScan(const ImportedScan& scan, bool forHost, Report& report, Console& console);

}  // namespace ScanHost
