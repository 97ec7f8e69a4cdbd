// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/UnitVec3d.h"

#include <algorithm>
#include <cmath>

namespace Tq_1_1 {

namespace {

constexpr double kSteps = 127.0;  // codes on each side of the middle code
constexpr int kMiddle = 128;      // code of coordinate 0; code 0 stays free for "no normal"

std::uint16_t encode(double coordinate) {
    const double clamped = std::clamp(coordinate, -1.0, 1.0);
    return static_cast<std::uint16_t>(kMiddle + static_cast<int>(std::lround(clamped * kSteps)));
}

double decode(int code) {
    return (code - kMiddle) / kSteps;
}

double signOf(double value) {
    return value < 0.0 ? -1.0 : 1.0;
}

}  // namespace

UnitVec3d<double> UnitVec3d<double>::fromDirection(const Vec3d<double>& direction) {
    const double sum = std::abs(direction.x) + std::abs(direction.y) + std::abs(direction.z);
    if (!(sum > 0.0) || !std::isfinite(sum)) {
        return {};
    }
    double u = direction.x / sum;
    double v = direction.y / sum;
    if (direction.z < 0.0) {  // the lower half is folded over the edges of the square
        const double folded = (1.0 - std::abs(v)) * signOf(u);
        v = (1.0 - std::abs(u)) * signOf(v);
        u = folded;
    }
    return {static_cast<std::uint16_t>((encode(u) << 8) | encode(v))};
}

Vec3d<double> UnitVec3d<double>::direction() const {
    if (!isSet()) {
        return {};
    }
    double x = decode(packed >> 8);
    double y = decode(packed & 0xFF);
    const double z = 1.0 - std::abs(x) - std::abs(y);
    if (z < 0.0) {
        const double unfolded = (1.0 - std::abs(y)) * signOf(x);
        y = (1.0 - std::abs(x)) * signOf(y);
        x = unfolded;
    }
    const double length = std::sqrt(x * x + y * y + z * z);
    return {x / length, y / length, z / length};
}

}  // namespace Tq_1_1
