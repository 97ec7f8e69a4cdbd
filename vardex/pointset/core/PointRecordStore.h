// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>
#include <utility>

#include "pointset/core/PointRecord.h"
#include "pointset/core/RecordMemory.h"
#include "pointset/core/ScanPointMath.h"

namespace Vardex {

/// The point records of one scan, all of one layout. They lie row by row in one block of memory and
/// fill it exactly.
///
/// Single points are reached by flat index. An index outside the records is safe everywhere: reads
/// give the null point or 0, writes do nothing. Work on many points takes the typed records once,
/// by `records` or `visitRecords`, and loops over them.
///
/// Threads: any number of readers, or one writer; the store takes no lock.
class PointRecordStore {
  public:
    PointRecordStore() = default;
    /// Leaves the other store as one that was never sized.
    PointRecordStore(PointRecordStore&& other) noexcept { swap(other); }
    PointRecordStore& operator=(PointRecordStore&& other) noexcept {
        PointRecordStore taken(std::move(other));
        swap(taken);
        return *this;
    }
    ~PointRecordStore() = default;

    /// Sizes the store to rows x cols records of a layout (the signed 32-bit product).
    /// Records that stay in the same layout are kept as far as the new count reaches; new ones are
    /// the host's null point with reflection 0, in a layout with times all zeros. A change of
    /// layout first releases the old records, so that old and new ones never exist together.
    /// The memory of new records that are all zeros is first touched by who writes the points.
    /// @return true
    /// @throw std::length_error  negative product; the store is unchanged
    /// @throw std::bad_alloc     the layout and the counts are the new ones, but the records are
    ///                           those that were there (none, when the layout changed)
    bool resetRecords(std::uint32_t rows, std::uint32_t cols, PointRecordLayout layout);

    /// Changes to the layout of the same fields and a time: every record keeps its fields and gets
    /// the time 0. In a layout with times, and in None, nothing changes. The records are rewritten
    /// in their own memory, which grows by the times.
    /// @throw std::bad_alloc  the store is unchanged
    void addTimes();

    PointRecordLayout layout() const { return layout_; }
    std::uint32_t rows() const { return rows_; }  ///< as last reset, also where no records are
    std::uint32_t cols() const { return cols_; }  ///< as last reset, also where no records are

    /// Number of records of the active layout.
    std::size_t size() const { return size_; }
    /// Memory that the records hold [bytes].
    std::size_t bytesHeld() const { return memory_.size(); }

    /// The records of one layout, in index order; none unless that layout is the active one.
    /// Valid until the next reset, move or swap.
    template <typename Record>
    std::span<Record> records() {
        return {first<Record>(), layout_ == RecordLayouts::of<Record>() ? size_ : 0};
    }
    template <typename Record>
    std::span<const Record> records() const {
        return {first<Record>(), layout_ == RecordLayouts::of<Record>() ? size_ : 0};
    }

    /// Calls visit(span of records) for the active layout; with layout None nothing is called.
    template <typename Visit>
    void visitRecords(const Visit& visit) {
        RecordLayouts::visit(layout_, [&]<typename Record>(std::type_identity<Record>) {
            visit(std::span(first<Record>(), size_));
        });
    }
    template <typename Visit>
    void visitRecords(const Visit& visit) const {
        RecordLayouts::visit(layout_, [&]<typename Record>(std::type_identity<Record>) {
            visit(std::span<const Record>(first<Record>(), size_));
        });
    }

    /// The scan point of a record; outside the records the host's null point, ScanPoint's
    /// nullReference. Valid until the next reset, move or swap.
    const ScanPoint& pointAt(std::uint64_t index) const;

    /// Replaces the scan point of a record and sets its own reflection and its time to 0: they
    /// belong to the measurement that is replaced.
    void setPointAt(std::uint64_t index, const ScanPoint& point);

    void setColorAt(std::uint64_t index, const Tq_1_1::Color4d<unsigned char>& color);
    void setNormalAt(std::uint64_t index, const Tq_1_1::UnitVec3d<double>& normal);

    /// The reflection of a record: its own field, or what the colour bytes say.
    std::uint16_t reflectionAt(std::uint64_t index) const;

    /// In a layout without a field for the reflection this replaces the colour of the record.
    void setReflectionAt(std::uint64_t index, std::uint16_t reflection);

  private:
    void swap(PointRecordStore& other) noexcept;
    void setLayout(PointRecordLayout layout);

    template <typename Record>
    Record* first() const {
        return reinterpret_cast<Record*>(memory_.data());
    }
    template <typename Record>
    void resizeRecords(std::size_t n);
    template <typename Record>
    void rewriteWithTimes();

    /// What every record begins with, whatever its layout, so that no layout takes longer than
    /// another. Requires: @p index is below the number of records.
    ScanPoint& scanPoint(std::uint64_t index) const {
        return *reinterpret_cast<ScanPoint*>(memory_.data() + index * recordSize_);
    }
    /// What visit(record) gives. Requires: @p index is below the number of records.
    template <typename Visit>
    decltype(auto) visitRecord(std::uint64_t index, const Visit& visit) const;
    /// Calls change(record) where a record is.
    template <typename Visit>
    void changeRecordAt(std::uint64_t index, const Visit& change);

    RecordMemory memory_;
    std::size_t size_ = 0;  // 0 in None
    PointRecordLayout layout_ = PointRecordLayout::None;
    std::size_t recordSize_ = 0;  // of the layout
    std::uint32_t rows_ = 0;
    std::uint32_t cols_ = 0;
};

// Single-point access is inline: it is the inner loop of everything the host does with points. What
// is read where no record is stays out of the way of the others.

template <typename Visit>
decltype(auto) PointRecordStore::visitRecord(std::uint64_t index, const Visit& visit) const {
    return RecordLayouts::visitKnown(
        layout_, [&]<typename Record>(std::type_identity<Record>) -> decltype(auto) {
            return visit(first<Record>()[index]);
        });
}

template <typename Visit>
void PointRecordStore::changeRecordAt(std::uint64_t index, const Visit& change) {
    if (index < size_) [[likely]] {
        visitRecord(index, change);
    }
}

inline const ScanPoint& PointRecordStore::pointAt(std::uint64_t index) const {
    if (index < size_) [[likely]] {
        return scanPoint(index);
    }
    return ScanPoint::nullReference;
}

inline void PointRecordStore::setPointAt(std::uint64_t index, const ScanPoint& point) {
    changeRecordAt(index, [&](auto& record) { record.replacePoint(point); });
}

inline void PointRecordStore::setColorAt(std::uint64_t index,
                                         const Tq_1_1::Color4d<unsigned char>& color) {
    if (index < size_) [[likely]] {
        scanPoint(index).color = color;
    }
}

inline void PointRecordStore::setNormalAt(std::uint64_t index,
                                          const Tq_1_1::UnitVec3d<double>& normal) {
    if (index < size_) [[likely]] {
        scanPoint(index).normal = normal;
    }
}

inline std::uint16_t PointRecordStore::reflectionAt(std::uint64_t index) const {
    if (index >= size_) [[unlikely]] {
        return 0;
    }
    return visitRecord(index, []<typename Record>(const Record& record) -> std::uint16_t {
        if constexpr (Record::template has<ReflectionField>) {
            return record.reflection;
        } else {
            return ScanPointMath::sharedReflection(record.point.color);
        }
    });
}

inline void PointRecordStore::setReflectionAt(std::uint64_t index, std::uint16_t reflection) {
    changeRecordAt(index, [&]<typename Record>(Record& record) {
        if constexpr (Record::template has<ReflectionField>) {
            record.reflection = reflection;
        } else {
            record.point.color = ScanPointMath::colorOfReflection(reflection);
        }
    });
}

}  // namespace Vardex
