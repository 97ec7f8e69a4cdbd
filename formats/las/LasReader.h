// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "Ovr/ScanFormat.h"

namespace Ovr::Formats {

/// LAS 1.0 to 1.4, point formats 0 to 10, plain or compressed: a mobile scan of one row.
///
/// Coordinates are computed in double precision, brought to the project's origin and narrowed.
/// Intensities become reflections. Colours keep their upper 8 bits, or their lower 8 in a file
/// whose colours all fit there. Adjusted GPS time gives the recording time, where the file says
/// and its values show that it is adjusted GPS time; the system identifier goes into the scanner's
/// model unless it names an operation, the generating software into the processing software.
/// The times of the points are taken when they are asked for, see IScanReader::loadTimes.
std::shared_ptr<const IScanFormat> lasFormat();

}  // namespace Ovr::Formats
