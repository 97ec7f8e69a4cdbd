// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "picture/PictureRequest.h"
#include "picture/Scene.h"
#include "picture/Sheet.h"

namespace ScanHost {

/// The grid of a stance as the scanner saw it: up is up, and what lies to the right is on the
/// right, however the grid counts. Cells without a return are hatched. Throws a Failure when the
/// grid has no points.
/// @param scene  one stance; outlives the sheet
Sheet panoramaSheet(const Scene& scene, const PictureRequest& request);

}  // namespace ScanHost
