// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "view/VoxelThinning.h"

#include <algorithm>
#include <cmath>

namespace ScanHost {

namespace {

constexpr std::size_t kFirstTable = 1U << 12U;

/// Spreads 64 bits over 64 bits, one to one (the finaliser of SplitMix64).
std::uint64_t mix(std::uint64_t bits) {
    bits = (bits ^ bits >> 30U) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ bits >> 27U) * 0x94D049BB133111EBU;
    return bits ^ bits >> 31U;
}

/// What stayed in a walk with cubes of one size.
struct Trial {
    bool fits = false;
    double expected = 0.0;  ///< points that stay; an estimate unless it fits
};

Trial tryOut(const PointWalk& walk, std::uint64_t count, std::uint64_t limit, double size) {
    VoxelThinning thinning(size);
    std::uint64_t seen = 0;
    walk([&](std::uint32_t scan, const Tq_1_1::Vec3d<double>& point) {
        ++seen;
        thinning.takes(scan, point);
        return thinning.taken() <= limit;
    });
    const double share = static_cast<double>(seen) / static_cast<double>(count);
    return {thinning.taken() <= limit, static_cast<double>(thinning.taken()) / share};
}

}  // namespace

VoxelThinning::VoxelThinning(double size) : size_(size), cubes_(size > 0.0 ? kFirstTable : 0) {}

bool VoxelThinning::takes(std::uint32_t scan, const Tq_1_1::Vec3d<double>& point) {
    if (cubes_.empty()) {
        ++taken_;
        return true;
    }
    std::uint64_t key = scan + 1;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const auto cube = static_cast<std::int64_t>(std::floor(point[axis] / size_));
        key = mix(key + 0x9E3779B97F4A7C15U) ^ static_cast<std::uint64_t>(cube);
    }
    key = std::max<std::uint64_t>(1, mix(key));
    const std::size_t mask = cubes_.size() - 1;
    std::size_t place = key & mask;
    while (cubes_[place] != 0) {
        if (cubes_[place] == key) {
            return false;
        }
        place = (place + 1) & mask;
    }
    cubes_[place] = key;
    if (++taken_ * 2 > cubes_.size()) {
        grow();
    }
    return true;
}

void VoxelThinning::grow() {
    std::vector<std::uint64_t> larger(cubes_.size() * 2);
    const std::size_t mask = larger.size() - 1;
    for (const std::uint64_t key : cubes_) {
        if (key == 0) {
            continue;
        }
        std::size_t place = key & mask;
        while (larger[place] != 0) {
            place = (place + 1) & mask;
        }
        larger[place] = key;
    }
    cubes_.swap(larger);
}

double thinningSize(const PointWalk& walk, std::uint64_t count, std::uint64_t limit) {
    constexpr double kFirstSize = 0.02;  // [m], what hand-held scans are about as dense as
    constexpr double kGoodShare = 0.95;  // of the limit
    constexpr double kAimedShare = 0.975;
    constexpr double kLargestStep = 8.0;  // from one size to the next
    constexpr int kFewTrials = 14;
    if (count <= limit) {
        return 0.0;
    }
    double size = kFirstSize;
    double tooSmall = 0.0;
    double fitting = 0.0;  // 0: none was found yet
    for (int trial = 0; trial < kFewTrials || fitting == 0.0; ++trial) {
        const Trial outcome = tryOut(walk, count, limit, size);
        (outcome.fits ? fitting : tooSmall) = size;
        const double share = outcome.expected / static_cast<double>(limit);
        if (outcome.fits && share >= kGoodShare) {
            break;
        }
        // Points lie on surfaces: half the size makes four times the points.
        size *= std::clamp(std::sqrt(share / kAimedShare), 1.0 / kLargestStep, kLargestStep);
        const bool isBetween = size > tooSmall && (fitting == 0.0 || size < fitting);
        if (!isBetween) {
            size = fitting == 0.0 ? tooSmall * 2.0
                                  : std::sqrt(std::max(tooSmall, fitting / 64.0) * fitting);
        }
    }
    return fitting;
}

}  // namespace ScanHost
