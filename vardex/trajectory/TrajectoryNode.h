// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Vardex {

/// A timed pose of the scanner, as callers hand it to a mobile point set.
struct TrajectoryNode {
    double time = 0.0;  ///< [s], on the recording's own clock; the first node is scan time 0
    /// Transformation from the scanner's frame into the frame of the point set's points, stored
    /// column by column: row r, column c is value 4c + r; the position [m] is values 12, 13, 14.
    /// The bottom row (values 3, 7, 11, 15) is copied but never read.
    alignas(16) double pose[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

static_assert(sizeof(TrajectoryNode) == 144);

}  // namespace Vardex
