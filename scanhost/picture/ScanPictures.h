// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "picture/Picture.h"
#include "session/ImportedScan.h"
#include "session/OutputRules.h"

namespace ScanHost {

/// A picture that was written.
struct PictureFile {
    std::filesystem::path file;
    std::string shows;
};

/// Writes a top view of all scans to @p file, and for a stance number N (counted among the scans,
/// from 1 on) its panorama next to it: house.png gets house-panorama-N.png. Files appear whole or
/// not at all, and none is written over against the rules. Throws a Failure when that fails, or when no scan has a return.
std::vector<PictureFile> drawScans(const std::vector<ImportedScan>& scans,
                                   const std::filesystem::path& file, const OutputRules& rules);

/// The scans seen from above, x to the right and y up, in world coordinates. A cell has the mean
/// colour of its points, the paler the fewer there are: walls, seen edgewise, stand out from floor
/// and ceiling. Trajectories are red lines, stances red crosses, a black bar is the scale.
/// @param legend  out: what a cell and the bar measure
Picture topView(const std::vector<ImportedScan>& scans, std::string& legend);

/// The grid of a stance as the scanner saw it: up is up, and what lies to the right is on the
/// right, however the grid counts. Cells without a return are magenta.
Picture panorama(const Hx::PointSet& points);

}  // namespace ScanHost
