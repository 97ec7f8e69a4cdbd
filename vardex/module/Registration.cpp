// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "module/Registration.h"

#include <memory>
#include <string>

#include "Hx/GenericScans.h"
#include "Hx/IScanPointTimes.h"
#include "Hx/Models.h"
#include "Hx/OvrPointSet.h"
#include "Hx/PointSetFactory.h"
#include "Hx/PointSetOps.h"
#include "Hx/PtSetObject.h"
#include "Hx/ScanPolar3dFactory.h"
#include "Hx/TypeConversion.h"
#include "Ovr/Vardex/CorvinMobileScanData.h"
#include "Ovr/Vardex/CorvinStanceScanData.h"

#include "mobile/CorvinMobilePointSet.h"
#include "module/RegisteredFunctions.h"
#include "module/frame/OperationList.h"
#include "pointset/CorvinPointSet.h"
#include "stance/CorvinStancePointSet.h"
#include "stance/ScanPolarCreators.h"

namespace Vardex {

namespace {

using Ovr::VardexLib::CorvinMobileScanData;
using Ovr::VardexLib::CorvinStanceScanData;

auto& settingsIds() {
    return Hx::PointSetOps::PreProcess::htmlUISettingsId.entries;
}
auto& settingsPatches() {
    return Hx::PointSetOps::PreProcess::patchPreProcessSettings.entries;
}
auto& panoramas() {
    return Hx::PointSetOps::OpenQuickView::isFullResPanoramaAvailable.entries;
}
auto& sphericalEstimations() {
    return Hx::SphericalCoordinateEstimation::Operations::hasReliableSphericalEstimation.entries;
}
auto& scanPointTimes() {
    return Hx::IScanPointTimes::Operations::hasScanPointTimes.entries;
}
auto& changeNotifications() {
    return Hx::PtSetObject::Operations::changedNotifyOperation.entries;
}

/// The key of a point-set class in the host's factory: the scan data name the class. Made once, so
/// that unregistering does not need memory.
template <typename ScanData>
const Tq_1_1::String& identifierOf() {
    static const Tq_1_1::String identifier = [] {
        Tq_1_1::String converted;
        Hx::TypeConversion::convert(ScanData::getStaticPointSetClassIdentifier(), converted);
        return converted;
    }();
    return identifier;
}

template <typename PointSetClass>
std::shared_ptr<Hx::PointSet> createUnnamed() {
    return std::make_shared<PointSetClass>(Tq_1_1::String::EMPTY);
}

template <typename ScanData, typename PointSetClass>
bool registerWithFactory() {
    const std::shared_ptr<Hx::PointSetFactory> factory = Hx::Models::the().getPointSetFactory();
    return factory != nullptr &&
           factory->registerPointSet(identifierOf<ScanData>(), &createUnnamed<PointSetClass>,
                                     Tq_1_1::String::EMPTY);
}

template <typename ScanData>
bool unregisterFromFactory() {
    const std::shared_ptr<Hx::PointSetFactory> factory = Hx::Models::the().getPointSetFactory();
    return factory != nullptr && factory->unregisterPointSet(identifierOf<ScanData>());
}

template <typename T>
void addScanPolarCreators() {
    Hx::ScanPolar3dFactory<T>& factory = Hx::getScanPolarFactory<T>();
    const auto* type = CorvinStancePointSet::Class();
    insertOperation(factory.createEmpty.entries, type, &createScanPolar<T>);
    insertOperation(factory.createCopy.entries, type, &createScanPolarCopy<T>);
    insertOperation(factory.createFromCartesian.entries, type, &createScanPolarFromCartesian<T>);
}

}  // namespace

bool registerCorvinMobilePointSet() {
    insertOperation(settingsIds(), CorvinMobilePointSet::Class(), &slamScanSettingsId);
    insertOperation(panoramas(), CorvinMobilePointSet::Class(), &noFullResPanorama);
    return registerWithFactory<CorvinMobileScanData, CorvinMobilePointSet>();
}

bool registerCorvinStancePointSet() {
    addScanPolarCreators<double>();
    addScanPolarCreators<float>();
    insertOperation(settingsIds(), CorvinStancePointSet::Class(),
                    &Hx::htmlUISettingsIdForGenericScans);
    insertOperation(settingsPatches(), CorvinStancePointSet::Class(),
                    &Hx::patchPreProcessSettingsForGenericScans);
    return registerWithFactory<CorvinStanceScanData, CorvinStancePointSet>();
}

void registerChangedNotifyOperation() {
    insertOperation(changeNotifications(), CorvinPointSet::Class(),
                    &Hx::OvrPointSet::changedNotify);
}

void registerSphericalEstimationOperation() {
    insertOperation(sphericalEstimations(), CorvinStancePointSet::Class(),
                    &alwaysReliableSphericalEstimation);
}

void registerScanPointTimesOperation() {
    insertOperation(scanPointTimes(), CorvinMobilePointSet::Class(), &scanPointTimesOf);
}

bool unregisterCorvinMobilePointSet() {
    removeOperation(settingsIds(), CorvinMobilePointSet::Class());
    removeOperation(panoramas(), CorvinMobilePointSet::Class());
    return unregisterFromFactory<CorvinMobileScanData>();
}

bool unregisterCorvinStancePointSet() {
    Hx::removeScanPolarType(CorvinStancePointSet::Class());
    removeOperation(settingsIds(), CorvinStancePointSet::Class());
    removeOperation(settingsPatches(), CorvinStancePointSet::Class());
    return unregisterFromFactory<CorvinStanceScanData>();
}

void unregisterSphericalEstimationOperation() {
    removeOperation(sphericalEstimations(), CorvinStancePointSet::Class());
}

void unregisterScanPointTimesOperation() {
    removeOperation(scanPointTimes(), CorvinMobilePointSet::Class());
}

void unregisterChangedNotifyOperation() {
    removeOperation(changeNotifications(), CorvinPointSet::Class());
}

bool registerAll() {
    if (!registerCorvinMobilePointSet() || !registerCorvinStancePointSet()) {
        return false;
    }
    registerChangedNotifyOperation();
    registerSphericalEstimationOperation();
    registerScanPointTimesOperation();
    return true;
}

void unregisterAll() {
    unregisterCorvinMobilePointSet();
    unregisterCorvinStancePointSet();
    unregisterSphericalEstimationOperation();
    unregisterScanPointTimesOperation();
    unregisterChangedNotifyOperation();
}

}  // namespace Vardex
