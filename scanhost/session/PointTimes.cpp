// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/PointTimes.h"

#include <optional>

namespace ScanHost {

std::vector<double> pointTimes(const Vardex::CorvinMobilePointSet& points) {
    std::vector<double> times;
    times.reserve(points.getNumPoints());
    forEachPointTime(points, [&](double seconds) { times.push_back(seconds); });
    return times;
}

double timeAt(const Vardex::CorvinMobilePointSet& points, std::uint64_t index) {
    const auto [col, row] = points.getColRow(index);
    double seconds = 0.0;
    points.getScanPtTime(row, col, seconds);
    return seconds;
}

std::uint64_t countSharedTimes(const Vardex::CorvinMobilePointSet& points) {
    std::uint64_t shared = 0;
    std::uint64_t alike = 0;  // points of the time that came last
    std::optional<double> last;
    forEachPointTime(points, [&](double seconds) {
        alike = last == seconds ? alike + 1 : 1;
        // The second point of a time makes the first one count as well.
        shared += alike == 2 ? 2U : alike > 2 ? 1U : 0U;
        last = seconds;
    });
    return shared;
}

}  // namespace ScanHost
