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
#include "module/frame/UnloadStep.h"
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

/// The key of a point-set class in the host's factory: the scan data name the class. Null until it
/// is made. Kept, so that unregistering needs no memory.
template <typename ScanData>
Tq_1_1::String& identifierOf() {
    static Tq_1_1::String identifier;
    return identifier;
}

template <typename ScanData>
void makeIdentifier() {
    Tq_1_1::String& identifier = identifierOf<ScanData>();
    if (identifier.isNull()) {
        Hx::TypeConversion::convert(ScanData::getStaticPointSetClassIdentifier(), identifier);
    }
}

template <typename PointSetClass>
std::shared_ptr<Hx::PointSet> createUnnamed() {
    return std::make_shared<PointSetClass>(Tq_1_1::String::EMPTY);
}

template <typename ScanData, typename PointSetClass>
bool registerWithFactory() {
    makeIdentifier<ScanData>();
    const std::shared_ptr<Hx::PointSetFactory> factory = Hx::Models::the().getPointSetFactory();
    return factory != nullptr &&
           factory->registerPointSet(identifierOf<ScanData>(), &createUnnamed<PointSetClass>,
                                     Tq_1_1::String::EMPTY);
}

/// @return false also when the factory throws, and when nothing was registered for want of a name
template <typename ScanData>
bool unregisterFromFactory() noexcept {
    bool removed = false;
    unloadStep([&removed] {
        const auto factory = Hx::Models::the().getPointSetFactory();
        const Tq_1_1::String& identifier = identifierOf<ScanData>();
        removed =
            factory != nullptr && !identifier.isNull() && factory->unregisterPointSet(identifier);
    });
    return removed;
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

bool unregisterCorvinMobilePointSet() noexcept {
    removeOperation(settingsIds(), CorvinMobilePointSet::Class());
    removeOperation(panoramas(), CorvinMobilePointSet::Class());
    return unregisterFromFactory<CorvinMobileScanData>();
}

bool unregisterCorvinStancePointSet() noexcept {
    unloadStep([] { Hx::removeScanPolarType(CorvinStancePointSet::Class()); });
    removeOperation(settingsIds(), CorvinStancePointSet::Class());
    removeOperation(settingsPatches(), CorvinStancePointSet::Class());
    return unregisterFromFactory<CorvinStanceScanData>();
}

void unregisterSphericalEstimationOperation() noexcept {
    removeOperation(sphericalEstimations(), CorvinStancePointSet::Class());
}

void unregisterScanPointTimesOperation() noexcept {
    removeOperation(scanPointTimes(), CorvinMobilePointSet::Class());
}

void unregisterChangedNotifyOperation() noexcept {
    removeOperation(changeNotifications(), CorvinPointSet::Class());
}

void prepareRegistration() {
    makeIdentifier<CorvinMobileScanData>();
    makeIdentifier<CorvinStanceScanData>();
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

void unregisterAll() noexcept {
    unregisterCorvinMobilePointSet();
    unregisterCorvinStancePointSet();
    unregisterSphericalEstimationOperation();
    unregisterScanPointTimesOperation();
    unregisterChangedNotifyOperation();
}

}  // namespace Vardex
