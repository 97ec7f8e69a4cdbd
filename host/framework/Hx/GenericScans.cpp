// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/GenericScans.h"

namespace Hx {

Tq_1_1::String htmlUISettingsIdForGenericScans(PointSet const* pointSet) {
    return pointSet == nullptr ? Tq_1_1::String::NIL : Tq_1_1::String(L"GenericScan");
}

Tq_1_1::SmartPtr<PreprocessSettings> patchPreProcessSettingsForGenericScans(
    PointSet const* /*pointSet*/, PreprocessSettings const* /*settings*/) {
    return nullptr;
}

}  // namespace Hx
