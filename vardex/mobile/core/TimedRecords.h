// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "pointset/core/PointRecordStore.h"

namespace Vardex::TimedRecords {

/// Gives every record a time of 0; all its other fields stay. The layout becomes the one of the
/// same fields and a time. In a layout with times, and in None, nothing changes.
///
/// The new store has rows x cols records. Records of another grid size have no place in it: the new
/// records are then all zeros. While it runs the old and the new records exist, and no third
/// copy.
/// @throw std::bad_alloc, std::length_error  the store is as it was before
void addPointTimes(PointRecordStore& store, std::uint32_t rows, std::uint32_t cols);

/// The time field of a record [us]; 0 in a layout without times and where no record is.
std::uint32_t timeAt(const PointRecordStore& store, std::uint64_t index);

/// Writes the time field of a record [us]; does nothing where there is none.
void setTimeAt(PointRecordStore& store, std::uint64_t index, std::uint32_t microseconds);

}  // namespace Vardex::TimedRecords
