// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "report/Console.h"
#include "report/Report.h"
#include "session/ImportedScan.h"

namespace ScanHost {

/// Adds a section with figures of a mobile scan: of its path, of its points' times and distances
/// from the scanner, and of the fields of a LAS file that the module does not hold. What the scan
/// lacks is said in place of the figures. A stance has none.
/// Requires: describeScan was called, which loads the times; remarks of loading were told there.
void describeStats(const ImportedScan& scan, Report& report, Console& console);

}  // namespace ScanHost
