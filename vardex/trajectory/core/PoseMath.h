// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Ovr/TrajectoryNode.h"
#include "Tq/Mat4d.h"
#include "Tq/Quaternion.h"
#include "Tq/Vec3d.h"

// Exact arithmetic: exported text carries these values to the last digit and the sign of zero, so
// the order of every sum and product below is part of the result.

namespace Vardex {

/// Angles [rad] of the rotation Rz(aboutZ) Ry(aboutY) Rx(aboutX). aboutZ lies between 0 and pi, so
/// a turn by -pi/2 about z is (pi/2, pi, pi).
struct RotationAngles {
    double aboutZ = 0.0;
    double aboutY = 0.0;
    double aboutX = 0.0;
};

}  // namespace Vardex

/// Poses of the scanner: their place in the world, and their rotation in other forms.
namespace Vardex::PoseMath {

/// Where the scanner was at a node [m], in the frame of the scan's points.
inline Tq_1_1::Vec3d<double> positionOf(const Ovr::VardexLib::TrajectoryNode& node) {
    return {node.pose[12], node.pose[13], node.pose[14]};
}

/// The pose of a node carried by a placement, as affine transformations: the bottom rows of both
/// are not read, that of the result is (0, 0, 0, 1).
/// @param placement  from the frame of the scan's points into the world
/// @return from the scanner's frame into the world
Tq_1_1::Mat4d<double> placePose(const Tq_1_1::Mat4d<double>& placement,
                                const Ovr::VardexLib::TrajectoryNode& node);

/// The rotation of a pose as a quaternion. Only rows and columns 0 to 2 are read; nothing is
/// normalised, so a scaled or sheared pose gives a quaternion that is not of unit length.
/// Source: Ken Shoemake, "Quaternion calculus and fast animation", SIGGRAPH 1987 course notes.
Tq_1_1::Quaternion quaternionOf(const Tq_1_1::Mat4d<double>& pose);

/// The direction of the scanner's z axis: (0, 0, 1) turned by the quaternion.
Tq_1_1::Vec3d<double> zAxisOf(const Tq_1_1::Quaternion& q);

/// The angles of the rotation matrix that belongs to the quaternion. A quaternion with a component
/// that is not a number gives angles that are none.
RotationAngles anglesOf(const Tq_1_1::Quaternion& q);

}  // namespace Vardex::PoseMath
