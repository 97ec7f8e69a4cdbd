// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "pointset/core/PointRecordStore.h"

#include <cstring>
#include <stdexcept>
#include <type_traits>

#include "pointset/core/GridAddress.h"

namespace Vardex {

namespace {

/// Resizes a vector to n records and makes its memory exactly that large. When memory runs out the
/// vector is as before.
template <typename Record>
void resizeExactly(std::vector<Record>& records, std::size_t n) {
    if (n > records.size()) {
        records.reserve(n);  // exact, where a growing resize would take up to twice as much
        const Record fresh = Record::ofNewCell();
        const Record zeros;
        if (std::memcmp(&fresh, &zeros, sizeof(Record)) == 0) {
            records.resize(n);  // several times as fast as copies of a record
        } else {
            records.resize(n, fresh);
        }
    } else if (n < records.size()) {
        // Where shrink_to_fit would keep the memory and say nothing when there is none to copy to.
        const auto end = records.begin() + static_cast<std::ptrdiff_t>(n);
        std::vector<Record>(records.begin(), end).swap(records);
    }
}

}  // namespace

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
        visitActive(*this, [](auto& records) { resizeExactly(records, 0); });
        layout_ = layout;
    }
    const auto n = layout == PointRecordLayout::None ? 0 : static_cast<std::size_t>(count);
    visitActive(*this, [n](auto& records) { resizeExactly(records, n); });
    size_ = n;
    return true;
}

void PointRecordStore::swap(PointRecordStore& other) noexcept {
    std::swap(vectors_, other.vectors_);
    std::swap(size_, other.size_);
    std::swap(rows_, other.rows_);
    std::swap(cols_, other.cols_);
    std::swap(layout_, other.layout_);
}

std::size_t PointRecordStore::bytesHeld() const {
    return std::apply(
        [](const auto&... vectors) {
            return (... + (vectors.capacity() *
                           sizeof(typename std::remove_cvref_t<decltype(vectors)>::value_type)));
        },
        vectors_);
}

}  // namespace Vardex
