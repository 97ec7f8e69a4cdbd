// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "picture/PictureRequest.h"
#include "picture/Scene.h"
#include "picture/Sheet.h"

namespace ScanHost {

/// The scans from above, from the south (front) or from the east (side), in world coordinates, with
/// the whole path of each mobile scan, every stance, scales and legends. Points that lie far away
/// from all others do not decide what is shown; a note counts them. Throws a Failure when there is
/// nothing to draw, or not what the request asks for.
/// @param scene  outlives the sheet
Sheet mapSheet(const Scene& scene, const PictureRequest& request);

}  // namespace ScanHost
