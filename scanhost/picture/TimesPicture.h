// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "picture/PictureRequest.h"
#include "picture/Scene.h"
#include "picture/Sheet.h"

namespace ScanHost {

/// How the points of each mobile scan spread over scan time, one plot below the other. Gaps are
/// hatched and counted. Throws a Failure when no scan has times.
/// @param scene  with times; outlives the sheet
Sheet timesSheet(const Scene& scene, const PictureRequest& request);

}  // namespace ScanHost
