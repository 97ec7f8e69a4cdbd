// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "report/Console.h"
#include "report/Report.h"
#include "session/ImportedScan.h"

namespace ScanHost {

/// Writes what a scan holds into a report: points, record, bounds, placement, metadata and what the
/// module answers to the operations registered for the scan's class. A mobile scan's trajectory and
/// times are loaded for it. Where that fails, a warning says why and the rest is shown all the
/// same. A trajectory that was named and cannot be read is a Failure.
void describeScan(const ImportedScan& scan, Report& report, Console& console);

}  // namespace ScanHost
