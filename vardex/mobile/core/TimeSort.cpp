// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "mobile/core/TimeSort.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <thread>
#if defined(VARDEX_PARALLEL_SORT)
#include <execution>

#include <oneapi/tbb/global_control.h>
#endif

namespace Vardex {

namespace {

// The bounds of the first pass: enough for a scan whose records are a few places off each, or a few
// of them far off, and less than a tenth of a full sort for a scan that it cannot settle.
constexpr std::size_t kShiftsPerRecord = 8;
constexpr std::size_t kFreeShifts = 65536;
constexpr std::size_t kLongestShift = 4096;

/// An object and no function: the library calls through what it is given, and a pointer to a
/// function would cost a call for each comparison.
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
/// Sees to it that the helper threads of oneTBB have ended when it is destroyed, unless others are
/// still using them. When the module is unloaded, oneTBB goes with it: a thread that idles in its
/// code until then would crash the host.
class HelperThreads {
  public:
    HelperThreads() = default;
    HelperThreads(const HelperThreads&) = delete;
    HelperThreads& operator=(const HelperThreads&) = delete;
    ~HelperThreads() { tbb::finalize(handle_, std::nothrow); }

  private:
    tbb::task_scheduler_handle handle_{tbb::attach{}};
};

/// Whether the merge sort's spare records, and threads with their stacks, can be had. oneTBB does
/// not survive running out of memory while it starts its threads, so it is asked only when there is
/// plenty. The memory is given back untouched, which costs next to nothing.
bool hasMemoryToSpare(std::size_t recordBytes, unsigned threads) {
    constexpr std::size_t kPerThread = std::size_t{16} << 20;
    constexpr std::size_t kForOneTbb = std::size_t{64} << 20;
    const std::size_t needed = recordBytes + kForOneTbb + kPerThread * threads;
    void* const probe = ::operator new(needed, std::nothrow);  // a new-expression may be left out
    ::operator delete(probe);
    return probe != nullptr;
}

/// @return false when one thread is to do it, in place; no record has moved then
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

void sortByTime(std::span<TimeRecord> records) {
    sortRecords(records);
}

void sortByTime(std::span<ReflectionTimeRecord> records) {
    sortRecords(records);
}

void sortByTime(PointRecordStore& store) {
    sortByTime(store.records<TimeRecord>());
    sortByTime(store.records<ReflectionTimeRecord>());
}

bool sortsInParallel() {
#if defined(VARDEX_PARALLEL_SORT)
    return true;
#else
    return false;
#endif
}

}  // namespace Vardex
