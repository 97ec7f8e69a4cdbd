// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "picture/PictureRequest.h"
#include "picture/Scene.h"
#include "session/OutputRules.h"

namespace ScanHost {

/// A picture that was written.
struct PictureFile {
    std::filesystem::path file;
    std::string shows;
    double width = 0.0;   ///< [pixels]
    double height = 0.0;  ///< [pixels]
    std::vector<std::string> notes;
};

/// Draws one picture of the scans. Throws a Failure when that fails.
/// @param files  names of what the user asked for, for the title
PictureFile drawPicture(const Scene& scene, const std::vector<std::string>& files,
                        const PictureRequest& request, const std::filesystem::path& file,
                        const OutputRules& rules);

/// Draws the plan of all scans into @p file, and for a stance number N (counted among the scans,
/// from 1 on) its panorama next to it: house.png gets house-panorama-N.png.
std::vector<PictureFile> drawPlanAndPanoramas(const Scene& scene,
                                              const std::vector<std::string>& files,
                                              const std::filesystem::path& file,
                                              const OutputRules& rules);

}  // namespace ScanHost
