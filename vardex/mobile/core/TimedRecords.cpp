// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "mobile/core/TimedRecords.h"

#include <cstddef>
#include <span>
#include <utility>

namespace Vardex::TimedRecords {

void addPointTimes(PointRecordStore& store, std::uint32_t rows, std::uint32_t cols) {
    const PointRecordLayout layout = RecordLayouts::timed(store.layout());
    if (layout == store.layout()) {
        return;
    }
    if (store.rows() == rows && store.cols() == cols) {
        store.addTimes();
    } else {
        PointRecordStore timed;
        timed.resetRecords(rows, cols, layout);
        store = std::move(timed);
    }
}

std::uint32_t timeAt(const PointRecordStore& store, std::uint64_t index) {
    std::uint32_t time = 0;
    store.visitRecords([&]<typename Record>(std::span<const Record> records) {
        if constexpr (Record::template has<TimeField>) {
            time = index < records.size() ? records[index].time : 0;
        }
    });
    return time;
}

void setTimeAt(PointRecordStore& store, std::uint64_t index, std::uint32_t microseconds) {
    store.visitRecords([&]<typename Record>(std::span<Record> records) {
        if constexpr (Record::template has<TimeField>) {
            if (index < records.size()) {
                records[index].time = microseconds;
            }
        }
    });
}

}  // namespace Vardex::TimedRecords
