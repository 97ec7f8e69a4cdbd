// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "Tq/ScanPtColor.h"
#include "Tq/Vec3d.h"

#include "pointset/PointRecordLayout.h"
#include "pointset/core/LayoutList.h"

// The one place that says what records are made of. A new field is a struct of its own, named in
// the records that have it; a new layout is a number and a name in PointRecordLayout.h and a line
// in the list below. The compiler refuses what is left undecided.

namespace Vardex {

/// The host's scan point, which every record begins with.
using ScanPoint = Tq_1_1::ScanPtColor<Tq_1_1::Vec3d<float>>;

// Packed to 2, the alignment of the scan point: the records have no gaps, and a reference to the
// scan point of a record is sound. Times and coordinates are misaligned for their type, so they are
// copied in and out and never bound to a reference or a pointer. The 2 is written out because g++
// does not expand a macro in the pragma and would silently pad the records.
#pragma pack(push, 2)

/// The front of every record.
struct PointField {
    ScanPoint point;
};

// The other fields. Each one says which value it has in a new record, and in pointReplaced what
// becomes of it when the scan point of its record is replaced.

/// A reflection apart from the colour. It belongs to the measurement of the point.
struct ReflectionField {
    std::uint16_t reflection = 0;

    void pointReplaced() { reflection = 0; }
};

/// The time of a point [us] since the start of the recording. It belongs to the measurement.
struct TimeField {
    std::uint32_t time = 0;

    void pointReplaced() { time = 0; }
};

/// A record: the scan point, then the fields in the order given, without gaps.
template <typename... Fields>
struct PointRecord : PointField, Fields... {
    template <typename Field>
    static constexpr bool has = (std::is_same_v<Field, Fields> || ...);

    static constexpr std::size_t kBytesOfFields = (sizeof(PointField) + ... + sizeof(Fields));

    /// The record of the same fields and then the time; a record that has a time is its own.
    using Timed =
        std::conditional_t<has<TimeField>, PointRecord, PointRecord<Fields..., TimeField>>;

    /// What the store puts into a new cell: the host's null point with the other fields new. In a
    /// layout with times all zeros: whoever grows it gives the points and their times afterwards.
    static PointRecord ofNewCell() {
        PointRecord record;
        if constexpr (!has<TimeField>) {
            record.point = ScanPoint::nullReference;
        }
        return record;
    }

    void replacePoint(const ScanPoint& replacement) {
        point = replacement;
        (Fields::pointReplaced(), ...);
    }

    /// Gives the scan point and every field to a new record with a time, whose time stays new.
    void copyTo(Timed& timed) const {
        timed.point = point;
        (void(static_cast<Fields&>(timed) = *this), ...);
    }
};

#pragma pack(pop)

static_assert(alignof(ScanPoint) == 2);

/// | offset | width | field |
/// |---|---|---|
/// | 0 | 18 | scan point |
using PlainRecord = PointRecord<>;
static_assert(sizeof(PlainRecord) == 18 && alignof(PlainRecord) == 2);

/// | offset | width | field |
/// |---|---|---|
/// | 0 | 18 | scan point |
/// | 18 | 2 | reflection |
using ReflectionRecord = PointRecord<ReflectionField>;
static_assert(sizeof(ReflectionRecord) == 20 && alignof(ReflectionRecord) == 2);

/// | offset | width | field |
/// |---|---|---|
/// | 0 | 18 | scan point |
/// | 18 | 4 | time [us] since the start of the recording |
using TimeRecord = PointRecord<TimeField>;
static_assert(sizeof(TimeRecord) == 22 && alignof(TimeRecord) == 2);

/// | offset | width | field |
/// |---|---|---|
/// | 0 | 18 | scan point |
/// | 18 | 2 | reflection |
/// | 20 | 4 | time [us] since the start of the recording |
using ReflectionTimeRecord = PointRecord<ReflectionField, TimeField>;
static_assert(sizeof(ReflectionTimeRecord) == 24 && alignof(ReflectionTimeRecord) == 2);

/// The record layouts. Sizes, flags, access, enabling times and sorting follow from this list.
using RecordLayouts =
    LayoutList<LayoutEntry<PointRecordLayout::Plain, PlainRecord>,
               LayoutEntry<PointRecordLayout::WithReflection, ReflectionRecord>,
               LayoutEntry<PointRecordLayout::WithTime, TimeRecord>,
               LayoutEntry<PointRecordLayout::WithReflectionAndTime, ReflectionTimeRecord>>;

}  // namespace Vardex
