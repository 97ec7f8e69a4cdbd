// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "Tq/Mat4d.h"
#include "Tq/Quaternion.h"
#include "Tq/Vec3d.h"

namespace ScanHost::Sample {

// Made of additions, products and square roots only, which are exact to the bit on every machine:
// the sample is the same everywhere, which the C library's sine would not grant.

using Vec3 = Tq_1_1::Vec3d<double>;
using Mat4 = Tq_1_1::Mat4d<double>;
using Tq_1_1::Quaternion;

struct SineCosine {
    double sine;
    double cosine;
};

/// Of an angle given in full turns; good to 1e-15.
/// @param turns  any finite number of moderate size
SineCosine sineCosine(double turns);

/// Direction of length 1. @param azimuth  [turns], counter-clockwise from +x
/// @param elevation  [turns] above the x-y plane
Vec3 directionOf(double azimuth, double elevation);

/// Turned about z by @p heading, then, in the turned frame, about y by @p pitch [turns].
Quaternion orientationOf(double heading, double pitch);
/// The rotation as a transformation to @p position.
Mat4 poseOf(const Quaternion& rotation, const Vec3& position);
/// The direction @p v turned by the pose's rotation.
Vec3 rotate(const Mat4& pose, const Vec3& v);

/// Evenly spread numbers from a seed (SplitMix64: Steele, Lea and Flood, "Fast splittable
/// pseudorandom number generators", OOPSLA 2014).
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    /// In [0, 1), with 53 random bits.
    double next();

  private:
    std::uint64_t state_;
};

}  // namespace ScanHost::Sample
