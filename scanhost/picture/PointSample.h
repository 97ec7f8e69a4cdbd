// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "Tq/Vec3d.h"

#include "picture/Scene.h"
#include "session/PointSummary.h"

namespace ScanHost {

/// A few points of a scan, evenly drawn from all of it.
struct PointSample {
    struct Point {
        Tq_1_1::Vec3d<double> world;
        double range = 0.0;    ///< from the scanner [points' unit]; of stances
        int reflection = 0;    ///< 0 to 65535
        double seconds = 0.0;  ///< scan time; 0 without times
    };
    std::vector<Point> points;
    bool hasColor = false;  ///< most of the points have one
};

/// At most some 50,000 returns; all of them when there are no more.
PointSample samplePoints(const SceneScan& scan);

/// Where the points of a scan are, without the few that lie far away from all others: per axis the
/// middle 99 % and as much again on each side, at least a tenth of the longest axis. Of fewer than
/// ten points all.
std::array<Range<double>, 3> likelyBounds(const PointSample& sample);

/// The values between which all but a hundredth at each end lie.
Range<double> commonRange(std::vector<double> values);

}  // namespace ScanHost
