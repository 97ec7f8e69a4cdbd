// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/core/TrajectoryCache.h"

#include <algorithm>
#include <cstdint>

#include "trajectory/core/PoseMath.h"

namespace Vardex {

using Ovr::VardexLib::TrajectoryNode;
using PoseMath::positionOf;
using Tq_1_1::Vec3d;

namespace {

constexpr double kBinWidthPerDuration = 0.00010001000100010001;  // 1 / 9999
constexpr std::size_t kLastBin = TrajectoryCache::kBinCount - 1;
constexpr std::size_t kNoNode = SIZE_MAX;

/// The integer nearest to a number, a half away from zero. Adding 0.5 before truncating would take
/// the number just below 0.5 to 1.
/// Requires: 0 <= value < 2^52.
std::size_t nearestInteger(double value) {
    const auto whole = static_cast<std::int64_t>(value);
    const bool up = value - static_cast<double>(whole) >= 0.5;
    return static_cast<std::size_t>(whole + (up ? 1 : 0));
}

/// Indices of the first and the last node that fall into a bin.
struct BinNodes {
    std::size_t first = kNoNode;
    std::size_t last = kNoNode;
};

std::vector<BinNodes> nodesOfBins(std::span<const TrajectoryNode> nodes, double binWidth) {
    std::vector<BinNodes> bins(TrajectoryCache::kBinCount);
    const double start = nodes.front().time;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const double place = (nodes[i].time - start) / binWidth;
        if (place >= 0.0) {
            BinNodes& bin =
                bins[place < static_cast<double>(kLastBin) ? nearestInteger(place) : kLastBin];
            bin.first = std::min(bin.first, i);
            bin.last = i;
        }
    }
    return bins;
}

Vec3d<double> between(const TrajectoryNode& before, const TrajectoryNode& after, double time) {
    const Vec3d<double> from = positionOf(before);
    const double share = (time - before.time) / (after.time - before.time);
    return from + (positionOf(after) - from) * share;
}

/// The positions of all bins. Requires: the first bin is hit.
std::vector<Vec3d<double>> positionsOf(std::span<const TrajectoryNode> nodes,
                                       const std::vector<BinNodes>& bins, double binWidth) {
    std::vector<Vec3d<double>> positions(bins.size());
    std::size_t bin = 0;
    while (bin < bins.size()) {
        const TrajectoryNode& before = nodes[bins[bin].last];
        positions[bin] = positionOf(before);
        const auto hit =
            std::find_if(bins.begin() + static_cast<std::ptrdiff_t>(bin) + 1, bins.end(),
                         [](const BinNodes& b) { return b.first != kNoNode; });
        const auto next = static_cast<std::size_t>(hit - bins.begin());
        for (std::size_t gap = bin + 1; gap < next; ++gap) {
            const double time = nodes.front().time + static_cast<double>(gap) * binWidth;
            positions[gap] =
                hit != bins.end() ? between(before, nodes[hit->first], time) : positions[bin];
        }
        bin = next;
    }
    return positions;
}

}  // namespace

void TrajectoryCache::fill(std::span<const TrajectoryNode> nodes, double duration) {
    if (nodes.empty() || !(duration > 0.0)) {
        unavailable_ = true;
        return;
    }
    const double binWidth = duration * kBinWidthPerDuration;
    const std::vector<BinNodes> bins = nodesOfBins(nodes, binWidth);
    if (bins.front().first == kNoNode) {  // the first node has no time: no node has a place in time
        unavailable_ = true;
        return;
    }
    positions_ = positionsOf(nodes, bins, binWidth);
    binWidth_ = binWidth;
}

std::optional<Vec3d<double>> TrajectoryCache::positionAt(double seconds) const {
    if (unavailable_ || positions_.empty()) {
        return std::nullopt;
    }
    const double bins = seconds / binWidth_;
    if (!(bins > -0.5 && bins < static_cast<double>(kBinCount) - 0.5)) {
        return std::nullopt;
    }
    return positions_[bins < 0.0 ? 0 : nearestInteger(bins)];
}

}  // namespace Vardex
