// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/PointSample.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "session/PointTimes.h"

namespace ScanHost {

namespace {

constexpr std::uint64_t kMostPoints = 50000;

/// A number that looks random; the same on every machine.
std::uint64_t scatter(std::uint64_t number) {
    number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9U;
    number = (number ^ (number >> 27U)) * 0x94D049BB133111EBU;
    return number ^ (number >> 31U);
}

/// The values without @p cut of them at each end.
Range<double> withoutEnds(std::vector<double>& values, std::size_t cut) {
    const auto low = values.begin() + static_cast<std::ptrdiff_t>(cut);
    const auto high = values.end() - 1 - static_cast<std::ptrdiff_t>(cut);
    std::nth_element(values.begin(), low, values.end());
    const double lowest = *low;
    std::nth_element(values.begin(), high, values.end());
    return {lowest, *high};
}

}  // namespace

PointSample samplePoints(const SceneScan& scan) {
    const Hx::PointSet& points = scan.points();
    const std::uint64_t cells = points.getNumPoints();
    const std::uint64_t step = std::max<std::uint64_t>(1, cells / kMostPoints);
    PointSample sample;
    std::size_t colored = 0;
    for (std::uint64_t first = 0; first < cells; first += step) {
        // A fixed step would meet the same rows of a grid again and again.
        const std::uint64_t index = std::min(first + scatter(first) % step, cells - 1);
        const Hx::PointSet::ScanPt& point = points.getScanPt(index);
        if (!isReturn(points, point)) {
            continue;
        }
        const Tq_1_1::Vec3d<double> local = positionOf(point);
        colored += point.hasColor() ? 1U : 0U;
        sample.points.push_back({scan.toWorld.transform(local),
                                 std::hypot(local.x, local.y, local.z), points.getReflection(index),
                                 scan.hasTimes ? timeAt(*scan.mobile, index) : 0.0});
    }
    sample.hasColor = 2 * colored > sample.points.size();
    return sample;
}

std::array<Range<double>, 3> likelyBounds(const PointSample& sample) {
    constexpr std::size_t kFewest = 10;
    constexpr std::size_t kPart = 200;  // at each end
    constexpr double kLeastReach = 0.1;
    std::array<Range<double>, 3> bounds;
    const std::size_t count = sample.points.size();
    const std::size_t cut = count < kFewest ? 0 : std::max<std::size_t>(1, count / kPart);
    double longest = 0.0;
    for (std::size_t axis = 0; axis < 3 && count > 0; ++axis) {
        std::vector<double> values;
        values.reserve(count);
        for (const PointSample::Point& point : sample.points) {
            values.push_back(point.world[axis]);
        }
        bounds[axis] = withoutEnds(values, cut);
        longest = std::max(longest, bounds[axis].high - bounds[axis].low);
    }
    for (Range<double>& range : bounds) {
        const double reach = longest > 0.0 ? std::max(range.high - range.low, kLeastReach * longest)
                                           : std::numeric_limits<double>::infinity();
        range.low -= reach;
        range.high += reach;
    }
    return bounds;
}

Range<double> commonRange(std::vector<double> values) {
    constexpr std::size_t kPart = 100;
    return values.empty() ? Range<double>{} : withoutEnds(values, values.size() / kPart);
}

}  // namespace ScanHost
