// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "report/Console.h"
#include "report/Report.h"
#include "session/ImportedScan.h"

namespace ScanHost {

/// Adds a section with what a LAS file says of itself and what its points show: version, origin of
/// the file, coordinate system, classes, returns, flags, extra dimensions, and where the header
/// differs from the points. Reads the points once. Does nothing for files of another format.
void describeLas(const ImportedScan& scan, Report& report, Console& console);

}  // namespace ScanHost
