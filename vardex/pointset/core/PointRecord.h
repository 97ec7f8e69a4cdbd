// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "Tq/ScanPtColor.h"
#include "Tq/Vec3d.h"

namespace Vardex {

/// The host's scan point, which every record begins with.
using ScanPoint = Tq_1_1::ScanPtColor<Tq_1_1::Vec3d<float>>;

/// What a point set keeps for each of its points.
enum class PointRecordLayout : std::int32_t {
    None = 0,                   ///< no records
    Plain = 1,                  ///< scan point; it holds either a colour or a reflection
    WithReflection = 2,         ///< scan point and a reflection of its own
    WithTime = 3,               ///< scan point and time; either a colour or a reflection
    WithReflectionAndTime = 4,  ///< scan point, a reflection of its own, and time
};

/// True when the reflection has its own field and colour and reflection do not exclude each other.
constexpr bool hasSeparateReflection(PointRecordLayout layout) {
    return layout == PointRecordLayout::WithReflection ||
           layout == PointRecordLayout::WithReflectionAndTime;
}

/// True when every record carries the time at which its point was measured.
constexpr bool hasPointTime(PointRecordLayout layout) {
    return layout == PointRecordLayout::WithTime ||
           layout == PointRecordLayout::WithReflectionAndTime;
}

// Packed to 2, the alignment of the scan point: the records have no gaps, and a reference to the
// scan point of a record is sound. The times and coordinates behind it are misaligned for their
// type, so they are copied in and out and never bound to a reference or a pointer. The 2 is written
// out because g++ does not expand a macro in the pragma and would silently pad the records.
#pragma pack(push, 2)

/// | offset | width | field |
/// |---|---|---|
/// | 0 | 18 | scan point |
struct PlainRecord {
    ScanPoint point;
};

/// | offset | width | field |
/// |---|---|---|
/// | 0 | 18 | scan point |
/// | 18 | 2 | reflection |
struct ReflectionRecord {
    ScanPoint point;
    std::uint16_t reflection = 0;
};

/// | offset | width | field |
/// |---|---|---|
/// | 0 | 18 | scan point |
/// | 18 | 4 | time [us] since the start of the recording |
struct TimeRecord {
    ScanPoint point;
    std::uint32_t time = 0;
};

/// | offset | width | field |
/// |---|---|---|
/// | 0 | 18 | scan point |
/// | 18 | 2 | reflection |
/// | 20 | 4 | time [us] since the start of the recording |
struct ReflectionTimeRecord {
    ScanPoint point;
    std::uint16_t reflection = 0;
    std::uint32_t time = 0;
};

#pragma pack(pop)

static_assert(sizeof(PlainRecord) == 18 && alignof(PlainRecord) == 2);
static_assert(sizeof(ReflectionRecord) == 20 && alignof(ReflectionRecord) == 2);
static_assert(sizeof(TimeRecord) == 22 && alignof(TimeRecord) == 2);
static_assert(sizeof(ReflectionTimeRecord) == 24 && alignof(ReflectionTimeRecord) == 2);

static_assert(alignof(ScanPoint) == 2);
static_assert(offsetof(ReflectionRecord, reflection) == 18);
static_assert(offsetof(TimeRecord, time) == 18);
static_assert(offsetof(ReflectionTimeRecord, reflection) == 18);
static_assert(offsetof(ReflectionTimeRecord, time) == 20);

static_assert(std::is_trivially_copyable_v<PlainRecord> &&
              std::is_trivially_copyable_v<ReflectionRecord> &&
              std::is_trivially_copyable_v<TimeRecord> &&
              std::is_trivially_copyable_v<ReflectionTimeRecord>);

/// Bytes that one record takes; 0 for None.
constexpr std::size_t recordSize(PointRecordLayout layout) {
    switch (layout) {
        case PointRecordLayout::Plain:
            return sizeof(PlainRecord);
        case PointRecordLayout::WithReflection:
            return sizeof(ReflectionRecord);
        case PointRecordLayout::WithTime:
            return sizeof(TimeRecord);
        case PointRecordLayout::WithReflectionAndTime:
            return sizeof(ReflectionTimeRecord);
        case PointRecordLayout::None:
            break;
    }
    return 0;
}

}  // namespace Vardex
