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

/// Loads the times of a LAS file's points in two passes: the first finds their range, the second
/// writes. Points measured before the first pose, and times that are no finite number, become scan
/// time 0; points after the last pose keep their time. Remarks say how many there are. A file of
/// which no point gets a time within the scan is refused. A load that fails sets the times that it
/// has written to 0.
/// Remarks on the kind of clock that the times look like and the one that the header says: a
/// warning when they differ, else a note.
/// @param known  range of all those times, all finite, from an earlier look at the same file; or
///               empty
[[nodiscard]] ErrorPtr loadLasTimes(InputFile& file, const LasHeader& header,
                                    const ScanSource& source, const TimeTarget& target,
                                    const std::optional<TimeRange>& known);

}  // namespace Ovr::Formats
