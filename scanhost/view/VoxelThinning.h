// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "Tq/Vec3d.h"

namespace ScanHost {

/// Thins points evenly in space: of those in one cube of a grid only the first stays. Each scan
/// keeps points of its own in a cube, so that scans of one place can be compared. Which points stay
/// depends on the points, their order and the grid alone.
class VoxelThinning {
  public:
    /// @param size  edge of the cubes [m]; 0 lets every point stay
    explicit VoxelThinning(double size);

    /// Whether a point stays.
    /// @param scan   number of the scan
    /// @param point  [m]; Requires: its coordinates are less than 2^62 cubes away from 0
    bool takes(std::uint32_t scan, const Tq_1_1::Vec3d<double>& point);
    /// How many points stayed.
    std::uint64_t taken() const { return taken_; }

  private:
    void grow();

    double size_;
    std::uint64_t taken_ = 0;
    std::vector<std::uint64_t> cubes_;  ///< a hash table of the cubes that have a point; 0 is free
};

/// Goes through all points of all scans in their order, until what it calls answers false.
using PointWalk = std::function<void(
    const std::function<bool(std::uint32_t scan, const Tq_1_1::Vec3d<double>& point)>&)>;

/// The edge of the cubes [m] with which at most @p limit points stay, and nearly as many where the
/// points allow it. 0 when all may stay.
/// @param count  of all points
/// @param limit  at least 1
double thinningSize(const PointWalk& walk, std::uint64_t count, std::uint64_t limit);

}  // namespace ScanHost
