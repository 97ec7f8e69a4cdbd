// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

/// Sorts records by time without comparing them: each pass puts all records into buckets by the
/// next eight bits of their times, in place, and the buckets are sorted on their own. A wrong guess
/// of the processor at every second comparison makes std::sort twice as slow.
namespace Vardex::TimeBuckets {

inline constexpr int kBits = 8;
inline constexpr std::size_t kBuckets = std::size_t{1} << kBits;
inline constexpr std::size_t kFewRecords = 512;    // comparing is faster
inline constexpr std::size_t kManyRecords = 2000;  // worth several threads

using Starts = std::array<std::size_t, kBuckets + 1>;

/// The highest bits in which the times of some records differ.
struct Digit {
    int shift = 0;

    template <typename Record>
    std::size_t of(const Record& record) const {
        return (record.time >> shift) & (kBuckets - 1);
    }
};

/// @return false when all times are equal
template <typename Record>
bool findDigit(std::span<const Record> records, Digit& digit) {
    std::uint32_t earliest = records[0].time;
    std::uint32_t latest = earliest;
    for (const Record& record : records) {
        const std::uint32_t time = record.time;
        earliest = std::min(earliest, time);
        latest = std::max(latest, time);
    }
    digit.shift = std::max(0, static_cast<int>(std::bit_width(earliest ^ latest)) - kBits);
    return earliest != latest;
}

/// @return where each bucket starts, and the end of the last
template <typename Record>
Starts startsOf(std::span<const Record> records, const Digit& digit) {
    Starts starts{};
    for (const Record& record : records) {
        ++starts[digit.of(record) + 1];
    }
    for (std::size_t bucket = 0; bucket < kBuckets; ++bucket) {
        starts[bucket + 1] += starts[bucket];
    }
    return starts;
}

/// Swaps records into their buckets. In each round the record at every place that is not settled
/// goes to the end of what its bucket has; the swaps do not wait for each other, as they would on
/// a cycle of the permutation.
template <typename Record>
void fillBuckets(std::span<Record> records, const Digit& digit, const Starts& starts) {
    Starts settled = starts;
    bool again = true;
    while (again) {
        again = false;
        for (std::size_t bucket = 0; bucket < kBuckets; ++bucket) {
            const std::size_t end = starts[bucket + 1];
            for (std::size_t i = settled[bucket]; i < end; ++i) {
                std::swap(records[i], records[settled[digit.of(records[i])]++]);
            }
            again = again || settled[bucket] < end;
        }
    }
}

/// @param forEach  forEach(count, visit) calls visit(0) to visit(count - 1), in any order, on any
///                 threads
template <typename Record, typename ForEach>
void sort(std::span<Record> records, const ForEach& forEach) {
    if (records.size() <= kFewRecords) {
        std::sort(records.begin(), records.end(),
                  [](const Record& a, const Record& b) { return a.time < b.time; });
        return;
    }
    Digit digit;
    if (!findDigit<Record>(records, digit)) {
        return;
    }
    const Starts starts = startsOf<Record>(records, digit);
    fillBuckets(records, digit, starts);
    const auto sortBucket = [&](std::size_t bucket) {
        const std::size_t start = starts[bucket];
        sort(records.subspan(start, starts[bucket + 1] - start), forEach);
    };
    if (digit.shift > 0 && records.size() > kManyRecords) {
        forEach(kBuckets, sortBucket);
    } else if (digit.shift > 0) {
        for (std::size_t bucket = 0; bucket < kBuckets; ++bucket) {
            sortBucket(bucket);
        }
    }
}

}  // namespace Vardex::TimeBuckets
