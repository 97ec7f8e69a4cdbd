// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Claim: sorting a scan by time costs one pass where the scan is in order or nearly so, and less
// than std::sort elsewhere. Compare SortByTime with StdSort of the same order and size. The time is
// that of the clock on the wall; processor_ms is that of all processors together, which counts on a
// machine that has other work too.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <random>
#include <span>
#include <vector>

#include "mobile/core/TimeSort.h"

namespace {

using Vardex::PointRecordLayout;
using Vardex::TimeRecord;
using Records = std::vector<TimeRecord>;

enum Order : std::int64_t { Random, NearlySorted, Jittered, Sorted, AllEqual };
constexpr const char* kOrderNames[] = {"random", "nearly sorted", "jittered", "sorted",
                                       "all equal"};

/// Two per cent of the records change places with one at most 64 away.
void swapSome(Records& records, std::mt19937& generator) {
    for (std::size_t i = 0; i < records.size() / 100; ++i) {
        const std::size_t a = generator() % (records.size() - 64);
        std::swap(records[a], records[a + 1 + generator() % 64]);
    }
}

Records makeRecords(std::size_t count, Order order) {
    std::mt19937 generator(42);
    Records records(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto ascending = static_cast<std::uint32_t>(40 * i);
        const auto random = static_cast<std::uint32_t>(generator());
        records[i].point.x = static_cast<float>(i);
        records[i].time = order == Random     ? random
                          : order == Jittered ? ascending + random % 320
                          : order == AllEqual ? 0
                                              : ascending;
    }
    if (order == NearlySorted) {
        swapSome(records, generator);
    }
    return records;
}

/// @param records  begin(), end() and data(), of as many records as are sorted
template <typename Range, typename Sort>
void run(benchmark::State& state, const Range& records, const Sort& sort) {
    const Records unsorted = makeRecords(records.size(), static_cast<Order>(state.range(1)));
    std::clock_t ticks = 0;
    for (auto _ : state) {
        std::copy(unsorted.begin(), unsorted.end(), records.begin());
        const auto start = std::chrono::steady_clock::now();
        ticks -= std::clock();
        sort();
        ticks += std::clock();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(taken.count());
        benchmark::DoNotOptimize(records.data());
    }
    state.counters["processor_ms"] = benchmark::Counter(
        1e3 * static_cast<double>(ticks) / CLOCKS_PER_SEC, benchmark::Counter::kAvgIterations);
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetLabel(kOrderNames[state.range(1)]);
}

void SortByTime(benchmark::State& state) {
    Vardex::PointRecordStore store;
    store.resetRecords(1, static_cast<std::uint32_t>(state.range(0)), PointRecordLayout::WithTime);
    run(state, store.records<TimeRecord>(), [&] { Vardex::TimeSort::sortByTime(store); });
}

void StdSort(benchmark::State& state) {
    Records records(static_cast<std::size_t>(state.range(0)));
    run(state, std::span(records), [&] {
        std::sort(records.begin(), records.end(),
                  [](const TimeRecord& a, const TimeRecord& b) { return a.time < b.time; });
    });
}

void everySizeAndOrder(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"records", "order"})->Unit(benchmark::kMillisecond)->UseManualTime();
    for (const std::int64_t count : {1000000, 10000000}) {
        for (const Order order : {Random, NearlySorted, Jittered, Sorted, AllEqual}) {
            bench->Args({count, order});
        }
    }
    for (const std::int64_t count : {50000000, 100000000}) {
        for (const Order order : {Random, NearlySorted, Sorted}) {
            bench->Args({count, order});
        }
    }
}
BENCHMARK(SortByTime)->Apply(everySizeAndOrder);
BENCHMARK(StdSort)->Apply(everySizeAndOrder);

}  // namespace
