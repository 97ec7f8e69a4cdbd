// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "mobile/CorvinMobilePointSet.h"

#include "Hx/PointSetIntegration.h"

#include "mobile/ScanPtTimes.h"
#include "module/frame/ClassRecord.h"
#include "pointset/PointSetCreation.h"
#include "trajectory/core/TrajectoryCache.h"

namespace Vardex {

namespace {

using Ovr::VardexLib::CorvinMobileScanData;
using Integration = Hx::PointSetIntegrationT<CorvinMobileScanData>;

const Integration::MakeScanData kMakeScanData = [](Ovr::Interfaces::IScanIntegration& integration) {
    return std::make_unique<CorvinMobileScanData>(integration);
};

}  // namespace

Hx::PointContainerBase::ClassPointer CorvinMobilePointSet::ClassCreator::create() const {
    return nullptr;
}

const Tq_1_1::HxClass* CorvinMobilePointSet::Class() {
    return classRecord<CorvinMobilePointSet, CorvinPointSet>(L"CorvinMobilePointSet");
}

const Tq_1_1::HxClass* CorvinMobilePointSet::getClassType() const {
    return Class();
}

CorvinMobilePointSet::CorvinMobilePointSet(const Tq_1_1::String& name)
    : CorvinPointSet(name, std::make_shared<Integration>(*this, kMakeScanData)),
      scanPtTimes_(std::make_shared<ScanPtTimes>(*this)),
      trajectoryCache_(std::make_unique<TrajectoryCache>()) {}

CorvinMobilePointSet::~CorvinMobilePointSet() = default;

CorvinMobileScanData& CorvinMobilePointSet::mobileScanData() const {
    return static_cast<CorvinMobileScanData&>(getIScanData());
}

CorvinMobileScanData& CorvinMobilePointSet::getMobileScanData() {
    return mobileScanData();
}

const CorvinMobileScanData& CorvinMobilePointSet::getMobileScanData() const {
    return mobileScanData();
}

std::shared_ptr<Ovr::VardexLib::CorvinMetaData> CorvinMobilePointSet::metaData() const {
    return mobileScanData().getMetaData();
}

std::shared_ptr<Hx::PointSet> CorvinMobilePointSet::createNewPointSet(
    int size1, int size2, const Tq_1_1::String& name) const {
    return createSizedPointSet<CorvinMobilePointSet>(size1, size2, name);
}

Hx::CPoint CorvinMobilePointSet::getColRow(const Hx::Polar3d<float>& /*direction*/) const {
    return {-1, -1};
}

}  // namespace Vardex
