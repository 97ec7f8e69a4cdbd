// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cstdint>
#include <limits>

#include "Hx/ModificationScope.h"

#include "mobile/CorvinMobilePointSet.h"
#include "mobile/ScanPtTimes.h"
#include "mobile/core/PointTime.h"
#include "mobile/core/TimeSort.h"
#include "mobile/core/TimedRecords.h"
#include "module/frame/IoResult.h"

namespace Vardex {

using namespace Hx::IOMessages;
using Ovr::VardexLib::CorvinMobileMetaData;

bool CorvinMobilePointSet::resizePointStorage(int rows, int cols, bool allocate,
                                              bool withReflection) {
    const PointRecordLayout layout = layoutFor(withReflection);
    return sizeRecords(rows, cols, allocate,
                       timeStampsEnabled_ ? RecordLayouts::timed(layout) : layout);
}

IOResult CorvinMobilePointSet::enableTimeStamps(bool enable) {
    timeStampsEnabled_ = enable;
    const PointRecordLayout layout = recordStore().layout();
    if (!enable || !hasValidData() || RecordLayouts::timed(layout) == layout) {
        return IO_OK;
    }
    const auto lock = getIScanIntegration().getPointDataWriteLock(kPointDataLockTimeout);
    if (lock == nullptr) {
        return IO_LOCK_NOT_OBTAINED;
    }
    TimedRecords::addPointTimes(recordStore(), static_cast<std::uint32_t>(getNumRows()),
                                static_cast<std::uint32_t>(getNumCols()));
    return IO_OK;
}

// In the operations below the order of the locals is the order of taking; leaving by return or
// exception gives back the error, the scope, the access and the lock, in this order.

IOResult CorvinMobilePointSet::loadScanPtTimes() {
    Ovr::Interfaces::IScanIntegration& integration = getIScanIntegration();
    const auto lock = integration.getPointDataWriteLock(kPointDataLockTimeout);
    if (lock == nullptr) {
        return IO_LOCK_NOT_OBTAINED;
    }
    const IOResult enabled = enableTimeStamps(true);
    if (isFailure(enabled)) {
        return enabled;
    }
    const auto access = integration.getPointDataExclusiveAccess(*lock);
    if (access == nullptr) {
        return IO_LOCK_NOT_OBTAINED;
    }
    if (!RecordLayouts::has<TimeField>(recordStore().layout())) {
        return IO_NO_POINT_TIMES;
    }
    const Hx::ModificationScope scope = createModificationScope();
    lendScanPtTimes();
    const Ovr::ErrorPtr error =
        mobileScanData().loadTimeStamps(*access, scope.getScanDataScope(), nullptr, nullptr);
    return resultOf(error);
}

IOResult CorvinMobilePointSet::unloadScanPtTimes() {
    Ovr::Interfaces::IScanIntegration& integration = getIScanIntegration();
    const auto lock = integration.getPointDataWriteLock(kPointDataLockTimeout);
    if (lock == nullptr) {
        return IO_LOCK_NOT_OBTAINED;
    }
    const auto access = integration.getPointDataExclusiveAccess(*lock);
    if (access == nullptr) {
        return IO_LOCK_NOT_OBTAINED;
    }
    const Hx::ModificationScope scope = createModificationScope();
    lendScanPtTimes();
    const Ovr::ErrorPtr error =
        mobileScanData().unloadTimeStamps(*access, scope.getScanDataScope());
    return resultOf(error);
}

void CorvinMobilePointSet::lendScanPtTimes() {
    Ovr::ServiceRegistry& services = mobileScanData().getServiceRegistry();
    if (services.getService<Ovr::VardexLib::IScanPointTimes>() == nullptr) {
        services.registerService<Ovr::VardexLib::IScanPointTimes>(scanPtTimes_);
    }
}

bool CorvinMobilePointSet::resizeScanPtTimes(int rows, int cols) {
    Ovr::ServiceRegistry& services = mobileScanData().getServiceRegistry();
    if (services.getService<Ovr::VardexLib::IScanPointTimes>() != scanPtTimes_) {
        services.registerService<Ovr::VardexLib::IScanPointTimes>(scanPtTimes_);
    }
    return scanPtTimes_->resizeTimeStamps(rows, cols);
}

void CorvinMobilePointSet::setScanPtTime(int row, int col, double seconds) {
    if (const auto microseconds = PointTime::fromSeconds(seconds)) {
        scanPtTimes_->setTimeStamp(row, col, *microseconds);
    }
}

bool CorvinMobilePointSet::getScanPtTime(int row, int col, double& seconds) const {
    seconds = PointTime::toSeconds(scanPtTimes_->getTimeStamp(row, col));
    return getSelectItem(row, col).isValid();
}

std::shared_ptr<CorvinMobileMetaData> CorvinMobilePointSet::mobileMetaData() const {
    return std::dynamic_pointer_cast<CorvinMobileMetaData>(metaData());
}

double CorvinMobilePointSet::getMaxScanPointTime() const {
    const auto record = mobileMetaData();
    return record != nullptr ? record->ScanDuration() : std::numeric_limits<double>::max();
}

void CorvinMobilePointSet::setMaxScanPointTime(double seconds) {
    if (const auto record = mobileMetaData()) {
        record->ScanDuration(seconds);
    }
}

void CorvinMobilePointSet::sortScanPointsByTime(const Hx::PointWriteLock& /*lock*/) {
    TimeSort::sortByTime(recordStore());
}

}  // namespace Vardex
