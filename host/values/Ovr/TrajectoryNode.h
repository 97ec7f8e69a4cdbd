// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Ovr::VardexLib {

/// A timed pose of the scanner, as the scan-data service keeps it.
struct TrajectoryNode {
    double time = 0.0;  ///< [s], on the recording's own clock
    /// Transformation from the scanner's frame into the frame of the scan's points, stored column
    /// by column: row r, column c is value 4c + r; the position [m] is values 12, 13, 14.
    alignas(16) double pose[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

static_assert(sizeof(TrajectoryNode) == 144);

}  // namespace Ovr::VardexLib
