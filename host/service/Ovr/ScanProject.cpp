// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/ScanProject.h"

#include <cmath>

namespace Ovr {

namespace {

constexpr double kOriginStep = 100.0;  // [m]

double roundDown(double coordinate) {
    // The sum turns a negative zero into a plain one.
    return std::floor(coordinate / kOriginStep) * kOriginStep + 0.0;
}

}  // namespace

Tq_1_1::Vec3d<double> ScanProject::chooseOrigin(const Tq_1_1::Vec3d<double>& nearby) {
    const std::lock_guard guard(mutex_);
    if (!origin_) {
        origin_.emplace(roundDown(nearby.x), roundDown(nearby.y), roundDown(nearby.z));
    }
    return *origin_;
}

std::optional<Tq_1_1::Vec3d<double>> ScanProject::origin() const {
    const std::lock_guard guard(mutex_);
    return origin_;
}

}  // namespace Ovr
