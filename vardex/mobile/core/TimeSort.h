// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>

#include "pointset/core/PointRecord.h"
#include "pointset/core/PointRecordStore.h"

namespace Vardex {

/// Puts records into ascending order of time, each with everything it carries. Records of equal
/// time end in no particular order.
///
/// Scans arrive in order or nearly so: one pass with a bounded amount of work settles those in
/// place. Any other scan goes to the standard library's parallel sort, which wants spare memory of
/// the size of the records; where that is not to be had, one thread sorts in place.
/// Threads: one caller, who lets nobody else at the records meanwhile; helper threads are finished
/// when the call returns.
void sortByTime(std::span<TimeRecord> records);
void sortByTime(std::span<ReflectionTimeRecord> records);

/// Sorts the records of a layout with point times; in any other layout nothing changes.
void sortByTime(PointRecordStore& store);

/// Whether this build sorts on several threads; otherwise one thread sorts every scan.
bool sortsInParallel();

}  // namespace Vardex
