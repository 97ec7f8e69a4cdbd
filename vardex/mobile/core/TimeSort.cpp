// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "mobile/core/TimeSort.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <span>
#include <thread>
#if defined(VARDEX_PARALLEL_SORT)
#include <execution>

#include <oneapi/tbb/global_control.h>
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

#if defined(VARDEX_PARALLEL_SORT)
/// Ends the helper threads of oneTBB when it is destroyed, unless others still use them. oneTBB is
/// unloaded with the module: a thread that still waited in its code would crash the host.
class HelperThreads {
  public:
    HelperThreads() = default;
    HelperThreads(const HelperThreads&) = delete;
    HelperThreads& operator=(const HelperThreads&) = delete;
    ~HelperThreads() { tbb::finalize(handle_, std::nothrow); }

  private:
    tbb::task_scheduler_handle handle_{tbb::attach{}};
};

/// Whether there is memory for the merge sort's spare records and for threads with their stacks.
/// oneTBB does not survive running out of memory while it starts its threads, so it is used only
/// when there is plenty. The memory is given back untouched, which costs almost nothing.
bool hasMemoryToSpare(std::size_t recordBytes, unsigned threads) {
    constexpr std::size_t kPerThread = std::size_t{16} << 20;
    constexpr std::size_t kForOneTbb = std::size_t{64} << 20;
    const std::size_t needed = recordBytes + kForOneTbb + kPerThread * threads;
    void* const probe = ::operator new(needed, std::nothrow);  // a new-expression may be left out
    ::operator delete(probe);
    return probe != nullptr;
}

/// @return false when one thread must sort in place; no record has moved then
template <typename Record>
bool sortOnSeveralThreads(std::span<Record> records) {
    const unsigned threads = std::thread::hardware_concurrency();
    if (threads < 2 || !hasMemoryToSpare(records.size_bytes(), threads)) {
        return false;  // on one core the merge sort is slower than the sort in place
    }
    try {
        const HelperThreads helpers;
        std::sort(std::execution::par, records.begin(), records.end(), earlier);
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
        std::sort(records.begin(), records.end(), earlier);
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
