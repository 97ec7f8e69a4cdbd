// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "pointset/core/PointRecordStore.h"

/// Puts the records of a scan into the order in which its points were measured.
namespace Vardex::TimeSort {

/// Sorts the records of a layout with times into ascending order of time, each with everything it
/// carries. Records of equal time end in no particular order. In a layout without times nothing
/// changes.
///
/// Scans arrive in order or nearly so: one pass with a bounded amount of work settles those in
/// place. Any other scan is sorted in place by several threads; where they cannot be had, by one.
/// Threads: one caller, who keeps all others away from the records until the call returns. No other
/// work runs on the calling thread meanwhile.
void sortByTime(PointRecordStore& store);

}  // namespace Vardex::TimeSort
