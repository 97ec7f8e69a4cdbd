// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "module/RegisteredFunctions.h"

#include "mobile/CorvinMobilePointSet.h"

namespace Vardex {

Tq_1_1::String slamScanSettingsId(Hx::PointSet const* pointSet) {
    const bool isMobile = dynamic_cast<CorvinMobilePointSet const*>(pointSet) != nullptr;
    return isMobile ? Tq_1_1::String(L"SlamScan") : Tq_1_1::String::NIL;
}

Tq_1_1::SmartPtr<Hx::Picture> noFullResPanorama(Hx::PointSet* /*pointSet*/) {
    return nullptr;
}

bool alwaysReliableSphericalEstimation() {
    return true;
}

std::shared_ptr<Hx::IScanPointTimes> scanPointTimesOf(std::shared_ptr<Hx::PointSet> pointSet) {
    return std::dynamic_pointer_cast<Hx::IScanPointTimes>(pointSet);
}

}  // namespace Vardex
