// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "pointset/core/PointRecord.h"
#include "pointset/core/ScanPointMath.h"

namespace Vardex {

/// The point records of one scan: one vector per layout, of which only the active layout's holds
/// records. The records lie row by row and fill their memory exactly (capacity equals size).
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
    /// @return true
    /// @throw std::length_error  negative product; the store is unchanged
    /// @throw std::bad_alloc     the layout and the counts are the new ones, but the records are
    ///                           those that were there (none, when the layout changed)
    bool resetRecords(std::uint32_t rows, std::uint32_t cols, PointRecordLayout layout);

    PointRecordLayout layout() const { return layout_; }
    std::uint32_t rows() const { return rows_; }  ///< as last reset, also where no records are
    std::uint32_t cols() const { return cols_; }  ///< as last reset, also where no records are

    /// Number of records of the active layout.
    std::size_t size() const { return size_; }
    /// Memory that the records of all layouts hold [bytes].
    std::size_t bytesHeld() const;

    /// The records of one layout, in index order; none unless that layout is the active one.
    /// Valid until the next reset, move or swap.
    template <typename Record>
    std::span<Record> records() {
        return std::get<std::vector<Record>>(vectors_);
    }
    template <typename Record>
    std::span<const Record> records() const {
        return std::get<std::vector<Record>>(vectors_);
    }

    /// Calls visit(span of records) for the active layout; with layout None nothing is called.
    template <typename Visit>
    void visitRecords(const Visit& visit) {
        visitActive(*this, [&](auto& vector) { visit(std::span(vector)); });
    }
    template <typename Visit>
    void visitRecords(const Visit& visit) const {
        visitActive(*this, [&](const auto& vector) { visit(std::span(vector)); });
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

    template <typename Store, typename Visit>
    static void visitActive(Store& store, const Visit& visit);
    /// Calls change(record) where a record is.
    template <typename Visit>
    void changeRecordAt(std::uint64_t index, const Visit& change);
    /// What read(record) gives; @p otherwise where no record is.
    template <typename Result, typename Visit>
    Result valueAt(std::uint64_t index, Result otherwise, const Visit& read) const;

    RecordLayouts::Vectors vectors_;
    std::size_t size_ = 0;  // never more than the active vector holds
    std::uint32_t rows_ = 0;
    std::uint32_t cols_ = 0;
    PointRecordLayout layout_ = PointRecordLayout::None;
};

// Single-point access is inline: it is the inner loop of everything the host does with points.

template <typename Store, typename Visit>
void PointRecordStore::visitActive(Store& store, const Visit& visit) {
    RecordLayouts::visit(store.layout_, [&]<typename Record>(std::type_identity<Record>) {
        visit(std::get<std::vector<Record>>(store.vectors_));
    });
}

template <typename Visit>
void PointRecordStore::changeRecordAt(std::uint64_t index, const Visit& change) {
    if (index < size_) [[likely]] {  // a vector would have to divide to learn its size
        visitActive(*this, [&](auto& vector) { change(vector[index]); });
    }
}

template <typename Result, typename Visit>
Result PointRecordStore::valueAt(std::uint64_t index, Result otherwise, const Visit& read) const {
    if (index >= size_) [[unlikely]] {
        return otherwise;
    }
    return RecordLayouts::valueFor(layout_, otherwise,
                                   [&]<typename Record>(std::type_identity<Record>) {
                                       return read(std::get<std::vector<Record>>(vectors_)[index]);
                                   });
}

inline const ScanPoint& PointRecordStore::pointAt(std::uint64_t index) const {
    return *valueAt(index, &ScanPoint::nullReference,
                    [](const auto& record) { return &record.point; });
}

inline void PointRecordStore::setPointAt(std::uint64_t index, const ScanPoint& point) {
    changeRecordAt(index, [&](auto& record) { record.replacePoint(point); });
}

inline void PointRecordStore::setColorAt(std::uint64_t index,
                                         const Tq_1_1::Color4d<unsigned char>& color) {
    changeRecordAt(index, [&](auto& record) { record.point.color = color; });
}

inline void PointRecordStore::setNormalAt(std::uint64_t index,
                                          const Tq_1_1::UnitVec3d<double>& normal) {
    changeRecordAt(index, [&](auto& record) { record.point.normal = normal; });
}

inline std::uint16_t PointRecordStore::reflectionAt(std::uint64_t index) const {
    return valueAt(index, std::uint16_t{0}, []<typename Record>(const Record& record) {
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
