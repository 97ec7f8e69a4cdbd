// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "Ovr/ScanSource.h"
#include "formats/InputFile.h"
#include "formats/LasHeader.h"
#include "formats/ScanFormat.h"

namespace Ovr::Formats {

/// Where a load's remarks go, one line each.
struct LasTimeRemarks {
    std::vector<std::string>& warnings;
    std::vector<std::string>& notes;
};

/// Loads the times of a LAS file's points in two passes: the first checks every time and finds
/// their range, the second writes. A load that is cancelled, or whose file changes meanwhile, sets
/// the times that it has written to 0.
/// @param remarks  receives the kind of clock that the times look like beside the one that the
///                 header says: a warning when they differ, else a note
ErrorPtr loadLasTimes(InputFile& file, const LasHeader& header, const ScanSource& source,
                      const TimeTarget& target, const LasTimeRemarks& remarks);

}  // namespace Ovr::Formats
