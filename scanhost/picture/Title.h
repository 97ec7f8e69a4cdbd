// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "picture/PictureRequest.h"
#include "picture/Scene.h"

namespace ScanHost {

/// "plan, seen from above".
std::string kindText(PictureKind kind);

/// The names of files, without their folders; of more than two the first one.
std::string filesText(const std::vector<std::string>& files);

/// What stands below the files' names: the kind of picture, the number of points and scans, the
/// coordinate system.
std::string factsText(PictureKind kind, std::uint64_t points, const Scene& scene);

}  // namespace ScanHost
