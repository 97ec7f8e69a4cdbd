// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tq/Vec3d.h"

#include "stance/core/Polar.h"

/// Polar coordinates around the scanner, in the scanner's own convention and in the host's unified
/// one. Below, r is the radius.
///
/// | convention | horizontal angle h | vertical angle v |
/// |---|---|---|
/// | scan | from +x clockwise seen from +z, [0, 2 pi] | elevation, [-pi/2, pi/2] |
/// | unified | from +x counter-clockwise, [0, 2 pi] | from +z, [0, pi] |
///
/// | convention | x | y | z |
/// |---|---|---|---|
/// | scan | r cos v cos h | -(r cos v sin h) | r sin v |
/// | unified | r sin v cos h | r sin v sin h | r cos v |
///
/// The order of the operations, their precision and the sign of zero are part of the result: the
/// angles are compared with grids that the scanner's own software computed. Points closer than
/// 0.000005 to the origin have both angles 0, points on the vertical axis the horizontal angle 0.
/// A horizontal angle a trace below 2 pi is rounded to 2 pi and not brought back to 0. As a float
/// it is 6.2831855, the next value above 2 pi.
/// Components that are not finite are not tested for; the angles are then not numbers or
/// meaningless.
///
/// All functions exist for float and double.
namespace Vardex::PolarMath {

template <typename T>
Tq_1_1::Vec3d<T> cartesianOfScan(const Polar<T>& polar);

/// For float the radius is computed in single precision and the angles in double precision, rounded
/// at the end.
template <typename T>
Polar<T> scanOfCartesian(const Tq_1_1::Vec3d<T>& point);

template <typename T>
Tq_1_1::Vec3d<T> cartesianOfUnified(const Polar<T>& polar);

/// Every step is computed in the precision of T.
template <typename T>
Polar<T> unifiedOfCartesian(const Tq_1_1::Vec3d<T>& point);

/// Scan to unified and, by the same two subtractions, unified to scan: (r, 2 pi - h, pi/2 - v). The
/// horizontal angle is not brought back below 2 pi: 0 becomes 2 pi.
template <typename T>
Polar<T> otherConvention(const Polar<T>& polar);

}  // namespace Vardex::PolarMath
