// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "mobile/ScanPtTimes.h"

#include "mobile/core/PointTime.h"
#include "mobile/core/TimedRecords.h"

namespace Vardex {

void CorvinMobilePointSet::ScanPtTimes::setTimeStamp(int row, int col, std::uint64_t microseconds) {
    const std::uint64_t index = owner_->getSelectItem(row, col).index;
    TimedRecords::setTimeAt(owner_->recordStore(), index, PointTime::toField(microseconds));
}

std::uint64_t CorvinMobilePointSet::ScanPtTimes::getTimeStamp(int row, int col) const {
    return TimedRecords::timeAt(owner_->recordStore(), owner_->getSelectItem(row, col).index);
}

bool CorvinMobilePointSet::ScanPtTimes::resizeTimeStamps(int rows, int cols) {
    return rows == owner_->getNumRows() && cols == owner_->getNumCols();
}

}  // namespace Vardex
