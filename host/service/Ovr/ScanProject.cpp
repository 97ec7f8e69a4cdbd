// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/ScanProject.h"

#include <cmath>

namespace Ovr {

namespace {

constexpr double kOriginStep = 100.0;  // [m]

double nearestStep(double coordinate) {
    // The sum turns a negative zero into a plain one.
    return std::round(coordinate / kOriginStep) * kOriginStep + 0.0;
}

}  // namespace

Tq_1_1::Vec3d<double> ScanProject::chooseOrigin(const Tq_1_1::Vec3d<double>& nearby) {
    const std::lock_guard guard(mutex_);
    if (!origin_) {
        origin_.emplace(nearestStep(nearby.x), nearestStep(nearby.y), nearestStep(nearby.z));
    }
    return *origin_;
}

std::optional<Tq_1_1::Vec3d<double>> ScanProject::origin() const {
    const std::lock_guard guard(mutex_);
    return origin_;
}

}  // namespace Ovr
