// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include <json/json.h>

#include "view/PageScan.h"
#include "view/PageWriter.h"

namespace ScanHost {

/// Puts the grid of a stance into a page as a picture: up is up, and what lies to the right is on
/// the right, however the grid counts. Requires: the grid has cells.
/// @param mostCells  larger grids are thinned out to at most about so many
/// @return what the page needs to know of it
Json::Value writePagePanorama(const PageScan& scan, std::uint64_t mostCells, PageWriter& page);

}  // namespace ScanHost
