// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "picture/PictureRequest.h"
#include "picture/Scene.h"
#include "picture/Sheet.h"

namespace ScanHost {

/// Height, speed and distance of the paths over scan time, one chart below the other. Throws a
/// Failure when no scan has a path, or when its units know no distances.
/// @param scene  outlives the sheet
Sheet pathSheet(const Scene& scene, const PictureRequest& request);

}  // namespace ScanHost
