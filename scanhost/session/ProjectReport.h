// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "dataobj/VardexDataObj.h"
#include "report/Report.h"

namespace ScanHost {

/// Writes what a project is into a report.
/// @param forHost  add class, attributes and JSON form of its data object, too
void describeProject(const Vardex::VardexDataObj& project, bool forHost, Report& report);

}  // namespace ScanHost
