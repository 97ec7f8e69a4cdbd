// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "Ovr/Errors.h"
#include "Ovr/Remarks.h"
#include "Ovr/ScanSource.h"
#include "Tq/Vec3d.h"
#include "kit/TextLine.h"

namespace Ovr::Formats {

/// Coordinates beyond this are refused: they would not fit single precision.
inline constexpr double kLargestCoordinate = 1e30;  // [m]

/// The origin that the points of a scan in world coordinates count from: that of its project,
/// which counts from 0 when none was chosen before; 0 without a project.
Tq_1_1::Vec3d<double> originOf(const ScanSource& source);

/// The step from coordinates in double precision to those of the records: subtracts an origin,
/// narrows to single precision, and reports where that loses the file's resolution.
class PointPlacer {
  public:
    /// @param origin  [m]; all 0 for points that stay in the scanner's frame
    explicit PointPlacer(const Tq_1_1::Vec3d<double>& origin = {}) : origin_(origin) {}

    /// Requires: each coordinate within kLargestCoordinate.
    Tq_1_1::Vec3d<float> place(const Tq_1_1::Vec3d<double>& position) {
        const Tq_1_1::Vec3d<double> relative = position - origin_;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            largest_[axis] = std::max(largest_[axis], std::abs(relative[axis]));
        }
        return {static_cast<float>(relative.x), static_cast<float>(relative.y),
                static_cast<float>(relative.z)};
    }
    /// The same for the point of a text line.
    /// @return InvalidValue for a coordinate beyond kLargestCoordinate
    [[nodiscard]] ErrorPtr place(const TextLine& line, const Tq_1_1::Vec3d<double>& position,
                                 Tq_1_1::Vec3d<float>& placed);

    /// Takes over what one with the same origin has placed.
    void merge(const PointPlacer& other) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            largest_[axis] = std::max(largest_[axis], other.largest_[axis]);
        }
    }

    /// Warns of each axis along which single precision is coarser than the file.
    /// @param file        for the message
    /// @param resolution  of the file's coordinates, per axis, not negative
    /// @param origin      what the coordinates count from, for the message
    /// @param unit        after numbers: " m", or empty for that of the file
    void report(Remarks& remarks, const std::string& file, const std::array<double, 3>& resolution,
                std::string_view origin, std::string_view unit) const;

  private:
    Tq_1_1::Vec3d<double> origin_;
    std::array<double, 3> largest_{};  ///< coordinate relative to the origin, unsigned
};

/// Refuses the coordinates of a text line that lie beyond kLargestCoordinate.
[[nodiscard]] ErrorPtr checkCoordinates(const TextLine& line,
                                        const Tq_1_1::Vec3d<double>& position);

}  // namespace Ovr::Formats
