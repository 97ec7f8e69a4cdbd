// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "Hx/IScanPointTimes.h"
#include "Hx/PointSetOps.h"
#include "Tq/SmartPtr.h"
#include "Tq/String.h"

/// The module's own entries in the host's operation lists. Without state; threads: any.
namespace Vardex {

/// Identifier of the settings page of mobile scans.
/// @return "SlamScan" for a mobile point set; else, and for null, a null string
Tq_1_1::String slamScanSettingsId(Hx::PointSet const* pointSet);

/// A mobile scan has no place from which one panorama would show it.
/// @return empty, whatever the point set
Tq_1_1::SmartPtr<Hx::Picture> noFullResPanorama(Hx::PointSet* pointSet);

/// Stationary scans are grids around the scanner. Their polar coordinates need no estimation.
/// @return true
bool alwaysReliableSphericalEstimation();

/// A point set's times, sharing the point set's ownership.
/// @return empty when the point set keeps none or is null
std::shared_ptr<Hx::IScanPointTimes> scanPointTimesOf(std::shared_ptr<Hx::PointSet> pointSet);

}  // namespace Vardex
