// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "Ovr/ScanFormat.h"
#include "ptx/PtxBlocks.h"

namespace Ovr::Formats {

/// PTX text: one or several stationary scans in a file, each a grid of points with a header of its
/// own. Points stand column after column in the file and row after row in the point set. Positions
/// stay in the scanner's frame; the header's matrix becomes the scan's pose, value for value.
/// Intensities from 0 to 1 become reflections from 0 to 65535. A cell without a return becomes a
/// null point. A load of fewer points than the grid has takes the first columns that fit whole.
std::shared_ptr<const IScanFormat> ptxFormat();

/// A reader as the format makes it, but for how the lines are shared out: what it reads and what it
/// says of it are the same for every way.
std::unique_ptr<IScanReader> makePtxReader(const ScanSource& source, const PtxSharing& sharing);

}  // namespace Ovr::Formats
