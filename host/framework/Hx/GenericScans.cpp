// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/GenericScans.h"

#include "Hx/PointSet.h"

namespace Hx {

Tq_1_1::String htmlUISettingsIdForGenericScans(PointSet const* pointSet) {
    return pointSet == nullptr ? Tq_1_1::String::NIL : Tq_1_1::String(L"GenericScan");
}

Tq_1_1::SmartPtr<PreprocessSettings> patchPreProcessSettingsForGenericScans(
    PointSet const* pointSet, PreprocessSettings const* /*settings*/) {
    if (pointSet == nullptr) {
        return nullptr;
    }
    // Both settings come from the point set: nothing of the given ones is left.
    Tq_1_1::SmartPtr<PreprocessSettings> patched(new PreprocessSettings);
    patched->isStructured = !pointSet->isPointCloud();
    patched->stepAccuracy = pointSet->getPointAccuracy().value_or(0.0);
    return patched;
}

}  // namespace Hx
