// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"
#include "Hx/PointSetOps.h"

namespace Hx {

/// "GenericScan" for any point set; a null string for null.
HOST_EXPORT Tq_1_1::String htmlUISettingsIdForGenericScans(PointSet const* pointSet);

/// Settings changed to what the point set needs.
/// @return always empty: there are no settings, so nothing is to change
HOST_EXPORT Tq_1_1::SmartPtr<PreprocessSettings> patchPreProcessSettingsForGenericScans(
    PointSet const* pointSet, PreprocessSettings const* settings);

}  // namespace Hx
