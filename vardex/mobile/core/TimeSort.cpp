// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "mobile/core/TimeSort.h"

#include <cstddef>
#include <new>
#include <span>
#if defined(VARDEX_PARALLEL_SORT)
#include <oneapi/tbb/parallel_for.h>
#include <oneapi/tbb/task_arena.h>
#endif

#include "mobile/core/TimeBuckets.h"
#if defined(VARDEX_PARALLEL_SORT)
#include "mobile/core/ResidentScheduler.h"
#endif

namespace Vardex::TimeSort {

namespace {

// The bounds of the first pass. They are enough when all records are a few places off, or a few
// records far off. A scan that the pass cannot settle costs less than a tenth of a full sort more.
constexpr std::size_t kShiftsPerRecord = 8;
constexpr std::size_t kFreeShifts = 65536;
constexpr std::size_t kLongestShift = 4096;

/// An object and not a function: a pointer to a function would cost a call for each comparison.
constexpr auto earlier = [](const auto& a, const auto& b) { return a.time < b.time; };

/// Moves a record that is earlier than its predecessor down to its place, over at most
/// kLongestShift others. The records stay complete also where that does not suffice.
/// @return the index it ended at
template <typename Record>
std::size_t moveDown(std::span<Record> records, std::size_t from) {
    const Record moved = records[from];
    const std::size_t lowest = from > kLongestShift ? from - kLongestShift : 0;
    std::size_t place = from;
    do {
        records[place] = records[place - 1];
        --place;
    } while (place > lowest && earlier(moved, records[place - 1]));
    records[place] = moved;
    return place;
}

/// An insertion sort that gives up when it becomes too much work.
/// @return whether the records are in order; otherwise they are only permuted
template <typename Record>
bool sortNearlySorted(std::span<Record> records) {
    std::size_t shifts = 0;
    for (std::size_t i = 1; i < records.size(); ++i) {
        if (!earlier(records[i], records[i - 1])) {
            continue;
        }
        const std::size_t place = moveDown(records, i);
        shifts += i - place;
        const bool stoppedShort = place > 0 && earlier(records[place], records[place - 1]);
        if (stoppedShort || shifts > kShiftsPerRecord * i + kFreeShifts) {
            return false;
        }
    }
    return true;
}

constexpr auto oneAfterTheOther = [](std::size_t count, const auto& visit) {
    for (std::size_t i = 0; i < count; ++i) {
        visit(i);
    }
};

#if defined(VARDEX_PARALLEL_SORT)
constexpr auto onSeveralThreads = [](std::size_t count, const auto& visit) {
    oneapi::tbb::parallel_for(std::size_t{0}, count, visit);
};

/// @return false when one thread must sort; the records are complete then, in any order
template <typename Record>
bool sortOnSeveralThreads(std::span<Record> records) {
    if (records.size() <= TimeBuckets::kManyRecords || !ResidentScheduler::isReady(0)) {
        return false;
    }
    try {
        // Alone: while this thread waits for its helpers it runs no job of the host. It holds the
        // re-entrant write lock, and the job would see half-sorted records.
        oneapi::tbb::this_task_arena::isolate(
            [records] { TimeBuckets::sort(records, onSeveralThreads); });
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}
#else
template <typename Record>
bool sortOnSeveralThreads(std::span<Record>) {
    return false;
}
#endif

template <typename Record>
void sortRecords(std::span<Record> records) {
    if (!sortNearlySorted(records) && !sortOnSeveralThreads(records)) {
        TimeBuckets::sort(records, oneAfterTheOther);
    }
}

}  // namespace

void sortByTime(PointRecordStore& store) {
    store.visitRecords([]<typename Record>(std::span<Record> records) {
        if constexpr (Record::template has<TimeField>) {
            sortRecords(records);
        }
    });
}

}  // namespace Vardex::TimeSort
