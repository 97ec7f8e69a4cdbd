// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/OvrPointSet.h"

#include <cstdint>
#include <limits>
#include <utility>

#include "Hx/PointSetIntegration.h"
#include "Ovr/Vardex/CorvinScanData.h"

namespace Hx {

OvrPointSet::OvrPointSet(const Tq_1_1::String& name,
                         std::shared_ptr<PointSetIntegration> integration)
    : PointSet(name), integration_(std::move(integration)) {}

void OvrPointSet::updateCachedMetaData() {
    const auto* scanData = dynamic_cast<const Ovr::VardexLib::CorvinScanData*>(&getIScanData());
    const auto metaData = scanData == nullptr ? nullptr : scanData->getMetaData();
    cachedMetaData_ = metaData == nullptr ? Ovr::VardexLib::CorvinMetaData() : *metaData;
}

Ovr::Interfaces::IScanIntegration& OvrPointSet::getIScanIntegration() const {
    return *integration_;
}

Ovr::Interfaces::IScanData& OvrPointSet::getIScanData() const {
    return integration_->getScanData();
}

bool OvrPointSet::resize(int rows, int cols) {
    if (!supportsResize() || !isPossibleSize(rows, cols)) {
        return false;
    }
    // Sizing drops records that have a reflection next to the colour.
    const bool kept = rows == rows_ && cols == cols_ && hasValidData() && !hasSeparateReflection();
    const bool sized = resizePointStorage(rows, cols, true, false);
    setValidData(sized && kept);
    return sized;
}

ModificationScope OvrPointSet::createModificationScope() {
    constexpr Ovr::DataStructures::ScanDataModification kEverything{true, true, true, true,
                                                                    true, true, true, true};
    return ModificationScope(getIScanData().createModificationScope(kEverything));
}

PointWriteLock OvrPointSet::lockPoints(int timeout) {
    return PointWriteLock(getIScanIntegration().getPointDataWriteLock(timeout));
}

Action::ExecReturn OvrPointSet::changedNotify(PtSetObject* /*container*/, PointSet* pointSet,
                                              Observer* /*observer*/, Observer* source) {
    if (pointSet == nullptr || source == nullptr) {
        return Action::EXEC_IGNORED;
    }
    pointSet->setModifiedInfo(true);
    return Action::EXEC_DONE;
}

}  // namespace Hx
