// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "stance/CorvinStancePointSet.h"

#include "Hx/PointSetIntegration.h"
#include "Ovr/Vardex/CorvinStanceScanData.h"

#include "module/frame/ClassRecord.h"
#include "pointset/PointSetCreation.h"

namespace Vardex {

namespace {

using Ovr::VardexLib::CorvinStanceMetaData;
using Ovr::VardexLib::CorvinStanceScanData;
using Integration = Hx::PointSetIntegrationT<CorvinStanceScanData>;

const Integration::MakeScanData kMakeScanData = [](Ovr::Interfaces::IScanIntegration& integration) {
    return std::make_unique<CorvinStanceScanData>(integration);
};

constexpr Tq_1_1::Mat4d<double> kDefaultPose = Tq_1_1::Mat4d<double>::identity();

}  // namespace

Hx::PointContainerBase::ClassPointer CorvinStancePointSet::ClassCreator::create() const {
    return nullptr;
}

const Tq_1_1::HxClass* CorvinStancePointSet::Class() {
    return classRecord<CorvinStancePointSet, CorvinPointSet>(L"CorvinStancePointSet");
}

const Tq_1_1::HxClass* CorvinStancePointSet::getClassType() const {
    return Class();
}

CorvinStancePointSet::CorvinStancePointSet(const Tq_1_1::String& name)
    : CorvinPointSet(name, std::make_shared<Integration>(*this, kMakeScanData)) {}

CorvinStancePointSet::~CorvinStancePointSet() = default;

std::shared_ptr<Ovr::VardexLib::CorvinMetaData> CorvinStancePointSet::metaData() const {
    return static_cast<const CorvinStanceScanData&>(getIScanData()).getMetaData();
}

Tq_1_1::Mat4d<double> CorvinStancePointSet::getSlamPose() const {
    const auto record = std::dynamic_pointer_cast<const CorvinStanceMetaData>(metaData());
    return record != nullptr ? Tq_1_1::Mat4d<double>{record->SlamPose()} : kDefaultPose;
}

void CorvinStancePointSet::setSlamPose(Tq_1_1::Mat4d<double> pose) {
    if (const auto record = std::dynamic_pointer_cast<CorvinStanceMetaData>(metaData())) {
        setModifiedInfo(true);
        record->SlamPose(pose.values);
    }
}

std::shared_ptr<Hx::PointSet> CorvinStancePointSet::createNewPointSet(
    int size1, int size2, const Tq_1_1::String& name) const {
    return createSizedPointSet<CorvinStancePointSet>(size1, size2, name);
}

}  // namespace Vardex
