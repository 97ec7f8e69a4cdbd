// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/CommandInterf.h"
#include "Hx/IScanPointTimes.h"
#include "Hx/OvrPointSet.h"
#include "Hx/PointSetOps.h"
#include "Hx/PtSetObject.h"
#include "Hx/RawScanFileObject.h"
#include "Tq/BaseNode.h"

// What the host holds one copy of for all modules: the operation lists, and the destructors of
// interfaces and of the classes that modules derive from. A destructor that is defined here keeps
// the class's type information in the host's library, so that dynamic casts work in every module.

namespace Tq_1_1 {

VisitorCore::~VisitorCore() = default;

}  // namespace Tq_1_1

namespace Hx {

AccessibleInterface::~AccessibleInterface() = default;
Command::~Command() = default;
CommandInterf::~CommandInterf() = default;
IScanPointTimes::~IScanPointTimes() = default;
Picture::~Picture() = default;
OvrPointSet::~OvrPointSet() = default;
PointContainer::~PointContainer() = default;
PointContainerBase::~PointContainerBase() = default;
PointDataInterf::~PointDataInterf() = default;
PreprocessSettings::~PreprocessSettings() = default;
RawScanFileObject::~RawScanFileObject() = default;
ValidationInterface::~ValidationInterface() = default;

decltype(PointSetOps::PreProcess::htmlUISettingsId) PointSetOps::PreProcess::htmlUISettingsId;
decltype(PointSetOps::PreProcess::patchPreProcessSettings)
    PointSetOps::PreProcess::patchPreProcessSettings;
decltype(PointSetOps::OpenQuickView::isFullResPanoramaAvailable)
    PointSetOps::OpenQuickView::isFullResPanoramaAvailable;
decltype(PointSetOps::Validate::validateData) PointSetOps::Validate::validateData;
decltype(SphericalCoordinateEstimation::Operations::hasReliableSphericalEstimation)
    SphericalCoordinateEstimation::Operations::hasReliableSphericalEstimation;
decltype(IScanPointTimes::Operations::hasScanPointTimes)
    IScanPointTimes::Operations::hasScanPointTimes;
decltype(PtSetObject::Operations::changedNotifyOperation)
    PtSetObject::Operations::changedNotifyOperation;

}  // namespace Hx
