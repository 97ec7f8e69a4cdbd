// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/ScanPtColor.h"

namespace Tq_1_1 {

constinit const ScanPtColor<Vec3d<float>> ScanPtColor<Vec3d<float>>::nullReference{};

}  // namespace Tq_1_1
