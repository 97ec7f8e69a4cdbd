// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "report/Console.h"
#include "report/Report.h"
#include "session/ImportedScan.h"

namespace ScanHost {

/// Writes the trajectory and the point times of a mobile scan into a report; both are loaded for
/// it. Where that fails, a warning says why and the rest is shown all the same. A trajectory that
/// was named and cannot be read is a Failure. Requires: the scan is a mobile one.
void describeMobile(const ImportedScan& scan, Report& report, Console& console);

}  // namespace ScanHost
