// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/PointSetOps.h"

namespace Hx {

Picture::~Picture() = default;
PreprocessSettings::~PreprocessSettings() = default;

decltype(PointSetOps::PreProcess::htmlUISettingsId) PointSetOps::PreProcess::htmlUISettingsId;
decltype(PointSetOps::PreProcess::patchPreProcessSettings)
    PointSetOps::PreProcess::patchPreProcessSettings;
decltype(PointSetOps::OpenQuickView::isFullResPanoramaAvailable)
    PointSetOps::OpenQuickView::isFullResPanoramaAvailable;
decltype(PointSetOps::Validate::validateData) PointSetOps::Validate::validateData;
decltype(SphericalCoordinateEstimation::Operations::hasReliableSphericalEstimation)
    SphericalCoordinateEstimation::Operations::hasReliableSphericalEstimation;

}  // namespace Hx
