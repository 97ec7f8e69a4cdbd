// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include <json/json.h>

#include "view/PageScan.h"
#include "view/PageWriter.h"
#include "view/VoxelThinning.h"

namespace ScanHost {

/// Bytes that a point of a scan takes in a page, before base64.
std::uint64_t bytesPerPagePoint(const PageScan& scan);

/// Puts the points of a scan that stay into a page, in an order in which any first part of them is
/// spread over all.
/// @param number    of the scan among those of the page
/// @param thinning  decides which stay
/// @return what the page needs to know of them
Json::Value writePagePoints(const PageScan& scan, std::uint32_t number, VoxelThinning& thinning,
                            PageWriter& page);

}  // namespace ScanHost
