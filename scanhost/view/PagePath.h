// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <json/json.h>

#include "view/PageScan.h"
#include "view/PageWriter.h"

namespace ScanHost {

/// Puts the trajectory of a scan into a page: its nodes, and the positions that the module gives
/// for scan times. Requires: the scan has a trajectory.
/// @return what the page needs to know of it
Json::Value writePagePath(const PageScan& scan, PageWriter& page);

/// How many points were measured in each of as many equal parts of the scan.
/// Requires: the scan has times and a duration.
Json::Value pageHistogram(const PageScan& scan);

}  // namespace ScanHost
