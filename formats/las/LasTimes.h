// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "Ovr/ScanFormat.h"
#include "Ovr/ScanSource.h"
#include "kit/InputFile.h"
#include "kit/PointClock.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// Loads the times of a LAS file's points in two passes: the first checks every time and finds
/// their range, the second writes. The first is left out where the range is known. A load that is
/// cancelled, or whose file changes meanwhile, sets the times that it has written to 0.
/// Remarks on the kind of clock that the times look like and the one that the header says: a
/// warning when they differ, else a note.
/// @param known  range of all those times, all finite, from an earlier look at the same file; or
///               empty
[[nodiscard]] ErrorPtr loadLasTimes(InputFile& file, const LasHeader& header,
                                    const ScanSource& source, const TimeTarget& target,
                                    const std::optional<TimeRange>& known);

}  // namespace Ovr::Formats
