// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "pointset/core/PointRecordStore.h"

#include <algorithm>
#include <array>
#include <bit>
#include <new>
#include <stdexcept>
#include <type_traits>

#include "pointset/core/GridAddress.h"

namespace Vardex {

/// Resizes the block to n records of the active layout. When memory runs out all is as before.
template <typename Record>
void PointRecordStore::resizeRecords(std::size_t n) {
    const Record fresh = Record::ofNewCell();
    using Bytes = std::array<std::byte, sizeof(Record)>;
    if (size_ == 0 && std::bit_cast<Bytes>(fresh) == Bytes{}) {
        memory_ = RecordMemory::zeros(n * sizeof(Record));
    } else {
        memory_.resize(n * sizeof(Record));
        std::fill(first<Record>() + std::min(n, size_), first<Record>() + n, fresh);
    }
    size_ = n;
}

/// From the last record to the first: none is written over before it was read.
template <typename Record>
void PointRecordStore::rewriteWithTimes() {
    using Timed = typename Record::Timed;
    memory_.resize(size_ * sizeof(Timed));
    const Record* const records = first<Record>();
    Timed* const timed = first<Timed>();
    for (std::size_t i = size_; i-- > 0;) {
        const Record record = records[i];
        record.copyTo(*::new (timed + i) Timed);
    }
}

bool PointRecordStore::resetRecords(std::uint32_t rows, std::uint32_t cols,
                                    PointRecordLayout layout) {
    const std::int64_t count = GridAddress::recordCount(rows, cols);
    if (count < 0) {
        throw std::length_error("PointRecordStore: the grid has more cells than can be counted");
    }
    rows_ = rows;
    cols_ = cols;
    if (layout != layout_) {
        size_ = 0;
        memory_ = {};
        setLayout(layout);
    }
    RecordLayouts::visit(layout, [&]<typename Record>(std::type_identity<Record>) {
        resizeRecords<Record>(static_cast<std::size_t>(count));
    });
    return true;
}

void PointRecordStore::addTimes() {
    RecordLayouts::visit(layout_, [this]<typename Record>(std::type_identity<Record>) {
        if constexpr (!Record::template has<TimeField>) {
            rewriteWithTimes<Record>();
        }
    });
    setLayout(RecordLayouts::timed(layout_));
}

void PointRecordStore::setLayout(PointRecordLayout layout) {
    layout_ = layout;
    recordSize_ = RecordLayouts::recordSize(layout);
}

void PointRecordStore::swap(PointRecordStore& other) noexcept {
    std::swap(memory_, other.memory_);
    std::swap(size_, other.size_);
    std::swap(layout_, other.layout_);
    std::swap(recordSize_, other.recordSize_);
    std::swap(rows_, other.rows_);
    std::swap(cols_, other.cols_);
}

}  // namespace Vardex
