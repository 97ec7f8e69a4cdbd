// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "pointset/core/PointRecordStore.h"

namespace Vardex {

/// Gives every record a time of 0: Plain records become WithTime, WithReflection records become
/// WithReflectionAndTime; points and reflections stay. In any other layout nothing changes.
///
/// The new store has rows x cols records. Where the records of another grid size were there, they
/// have no place in it, and the new ones are null points.
/// While it runs the old and the new records exist, and no third copy.
/// @throw std::bad_alloc, std::length_error  the store is as it was before
void addPointTimes(PointRecordStore& store, std::uint32_t rows, std::uint32_t cols);

/// The time field of a record [us]; 0 in a layout without times and where no record is.
std::uint32_t timeAt(const PointRecordStore& store, std::uint64_t index);

/// Writes the time field of a record [us]; does nothing where there is none.
void setTimeAt(PointRecordStore& store, std::uint64_t index, std::uint32_t microseconds);

}  // namespace Vardex
