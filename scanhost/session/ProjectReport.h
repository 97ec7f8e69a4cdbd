// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "dataobj/VardexDataObj.h"
#include "report/Report.h"

namespace ScanHost {

/// Writes the attributes and the JSON form of a project's data object into a report.
void describeProject(const Vardex::VardexDataObj& project, Report& report);

}  // namespace ScanHost
