// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "view/PagePath.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "report/Report.h"
#include "session/NodePose.h"
#include "session/PointTimes.h"

namespace ScanHost {

namespace {

constexpr std::size_t kMostNodes = 150000;  // about 5 MB of the page
// The module's positions lie this many steps apart in time; bin 0 is scan time 0, the last one the
// scan's duration.
constexpr std::size_t kPositionSteps = 9999;

/// Puts positions into the page, in the smallest power of ten that 32 bits can count them in.
Json::Value writePositions(const std::vector<Tq_1_1::Vec3d<double>>& positions,
                           const Tq_1_1::Vec3d<double>& origin, PageWriter& page) {
    double farthest = 0.0;
    for (const Tq_1_1::Vec3d<double>& position : positions) {
        const Tq_1_1::Vec3d<double> away = position - origin;
        farthest = std::max({farthest, std::abs(away.x), std::abs(away.y), std::abs(away.z)});
    }
    double step = 1e-5;
    while (farthest / step >= std::numeric_limits<std::int32_t>::max()) {
        step *= 10.0;
    }
    PageBytes bytes;
    bytes.reserve(positions.size() * 3 * sizeof(std::int32_t));
    for (const Tq_1_1::Vec3d<double>& position : positions) {
        const Tq_1_1::Vec3d<double> away = position - origin;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            bytes.add(static_cast<std::int32_t>(std::lround(away[axis] / step)));
        }
    }
    Json::Value written;
    written["step"] = step;
    written["positions"] = page.addBlock(bytes);
    return written;
}

Json::Value writeNodes(const PageScan& scan, PageWriter& page) {
    const auto& nodes = scan.mobile->nodes();
    const Tq_1_1::Mat4d<double> toWorld = scan.scan.toWorld();
    const std::size_t stride = (nodes.size() + kMostNodes - 1) / kMostNodes;
    std::vector<Tq_1_1::Vec3d<double>> positions;
    PageBytes times;
    double length = 0.0;
    PageBytes lengths;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        length += i > 0 ? distanceBetween(positionOf(nodes[i - 1]), positionOf(nodes[i])) : 0.0;
        if (i % stride == 0 || i + 1 == nodes.size()) {
            positions.push_back(toWorld.transform(positionOf(nodes[i])));
            times.add(nodes[i].time - nodes.front().time);
            lengths.add(length);
        }
    }
    Json::Value written = writePositions(positions, scan.origin, page);
    written["times"] = page.addBlock(times);
    written["lengths"] = page.addBlock(lengths);
    written["count"] = Json::UInt64{positions.size()};
    written["of"] = Json::UInt64{nodes.size()};
    return written;
}

Json::Value writeBins(const PageScan& scan, PageWriter& page) {
    const auto lookup = scan.mobile->pointTimes();
    const Tq_1_1::Mat4d<double> toWorld = scan.scan.toWorld();
    std::vector<Tq_1_1::Vec3d<double>> positions;
    positions.reserve(kPositionSteps + 1);
    for (std::size_t i = 0; i <= kPositionSteps; ++i) {
        const double seconds =
            static_cast<double>(i) / static_cast<double>(kPositionSteps) * scan.mobile->duration();
        const auto position = lookup->getRecordingPositionForTime(seconds);
        positions.push_back(position ? toWorld.transform(*position) : scan.origin);
    }
    return writePositions(positions, scan.origin, page);
}

}  // namespace

Json::Value writePagePath(const PageScan& scan, PageWriter& page) {
    Json::Value path;
    path["nodes"] = writeNodes(scan, page);
    path["bins"] = writeBins(scan, page);
    return path;
}

Json::Value pageHistogram(const PageScan& scan) {
    constexpr std::size_t kParts = 500;
    std::vector<std::uint64_t> counts(kParts);
    forEachPointTime(scan.mobile->points(), [&](double seconds) {
        const double part = seconds / scan.mobile->duration() * kParts;
        if (part >= 0.0 && part <= kParts) {
            ++counts[std::min(static_cast<std::size_t>(part), kParts - 1)];
        }
    });
    Json::Value histogram(Json::arrayValue);
    for (const std::uint64_t count : counts) {
        histogram.append(Json::UInt64{count});
    }
    return histogram;
}

}  // namespace ScanHost
