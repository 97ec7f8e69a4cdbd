// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "pointset/core/ScanPointMath.h"

#include <cmath>

namespace Vardex::ScanPointMath {

namespace {

constexpr float kOriginScale = 1e16F;  // a squared length that rounds to 0 on this scale is none

float squaredLength(const Tq_1_1::Vec3d<float>& v) {
    return v.x * v.x + v.y * v.y + v.z * v.z;
}

}  // namespace

double distanceOf(const ScanPoint& point) {
    return std::sqrt(squaredLength(point.position()));
}

ScanPoint atDistance(const ScanPoint& point, double distance) {
    const Tq_1_1::Vec3d<float> position = point.position();
    const float squared = squaredLength(position);
    const bool atOrigin = std::round(squared * kOriginScale) == 0.0F;
    const Tq_1_1::Vec3d<float> direction =
        atOrigin ? Tq_1_1::Vec3d<float>{1.0F, 0.0F, 0.0F} : position * (1.0F / std::sqrt(squared));

    ScanPoint moved = point;
    moved.setPosition(direction * static_cast<float>(distance));
    return moved;
}

}  // namespace Vardex::ScanPointMath
