// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Ovr/ScanSource.h"
#include "Tq/String.h"

namespace Hx {

/// The description of a file to import.
struct FileInfo {
    Tq_1_1::String path;
    Ovr::ScanSource source;  ///< place in the file and the user's settings; its file is not read
};

}  // namespace Hx
