// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"
#include "Hx/PointSetOps.h"

namespace Hx {

/// "GenericScan" for any point set; a null string for null.
HOST_EXPORT Tq_1_1::String htmlUISettingsIdForGenericScans(PointSet const* pointSet);

/// A copy of the settings (defaults for null) with structure and accuracy as the point set says.
/// @return empty for a null point set
HOST_EXPORT Tq_1_1::SmartPtr<PreprocessSettings> patchPreProcessSettingsForGenericScans(
    PointSet const* pointSet, PreprocessSettings const* settings);

}  // namespace Hx
