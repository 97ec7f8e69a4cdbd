// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "HostExport.h"
#include "Ovr/Remarks.h"
#include "Ovr/ScanFormat.h"

namespace Ovr {

/// Chooses the origin of the scan's project, unless it has one: near the points, where their
/// headers give a place; else near the first pose of a mobile scan's trajectory. Without either the
/// project stays without origin. Files that cannot be read are passed over: importing them says so.
/// @param reader   of the scan
/// @param remarks  receives what is noticed in the headers of the points
HOST_EXPORT void chooseOrigin(const ScanListing& scan, IScanReader& reader, Remarks& remarks);

/// The same for the scans of a project: the first that has a place or a pose decides. Called with
/// all scans before some are imported, so that each import gets the same origin.
HOST_EXPORT void chooseOrigin(const std::vector<ScanListing>& scans);

}  // namespace Ovr
