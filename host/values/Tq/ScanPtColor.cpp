// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/ScanPtColor.h"

namespace Tq_1_1 {

namespace {

constinit ScanPtColor<Vec3d<float>> nullPoint{};

}  // namespace

constinit const ScanPtColor<Vec3d<float>>& ScanPtColor<Vec3d<float>>::nullReference = nullPoint;

void setNullPoint(const ScanPtColor<Vec3d<float>>& point) {
    nullPoint = point;
}

}  // namespace Tq_1_1
