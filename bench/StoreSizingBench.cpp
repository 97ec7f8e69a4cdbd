// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Sizing of the point records, whose memory has been written, against filling fresh memory of the
// same size. New records that are zeros are not touched by the sizing: see firstWrite.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "pointset/core/PointRecordStore.h"

namespace {

using Vardex::PointRecordLayout;
using Vardex::PointRecordStore;

std::uint32_t countOf(const benchmark::State& state) {
    return static_cast<std::uint32_t>(state.range(0));
}

/// The baseline: as much new memory as plain records take, written once.
void fillFreshMemory(benchmark::State& state) {
    const std::size_t bytes =
        countOf(state) * Vardex::RecordLayouts::recordSize(PointRecordLayout::Plain);
    for (auto _ : state) {
        const std::unique_ptr<char[]> memory(new char[bytes]);
        std::memset(memory.get(), 0, bytes);
        benchmark::DoNotOptimize(memory.get());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Sizes from one state of the store to another; only the second sizing is timed.
void reset(benchmark::State& state, PointRecordLayout before, double factorBefore,
           PointRecordLayout after) {
    const std::uint32_t count = countOf(state);
    const auto countBefore = static_cast<std::uint32_t>(factorBefore * count);
    for (auto _ : state) {
        state.PauseTiming();
        auto store = std::make_unique<PointRecordStore>();
        store->resetRecords(countBefore, 1, before);
        std::ranges::fill(store->records<Vardex::PlainRecord>(), Vardex::PlainRecord{});
        state.ResumeTiming();
        store->resetRecords(count, 1, after);
        benchmark::DoNotOptimize(&store->pointAt(0));
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Sizing and then writing all records once, as an import does.
void firstWrite(benchmark::State& state) {
    const std::uint32_t count = countOf(state);
    for (auto _ : state) {
        PointRecordStore store;
        store.resetRecords(count, 1, PointRecordLayout::Plain);
        std::ranges::fill(store.records<Vardex::PlainRecord>(), Vardex::PlainRecord{});
        benchmark::DoNotOptimize(&store.pointAt(0));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void sizes(benchmark::internal::Benchmark* bench) {
    // A fixed number of rounds: a reset to the same size takes no time, its preparation does.
    bench->Arg(1'000'000)->Arg(10'000'000)->Iterations(5)->Unit(benchmark::kMillisecond);
}
void sizesAndGrowth(benchmark::internal::Benchmark* bench) {
    bench->Apply(sizes)->Arg(50'000'000)->Arg(100'000'000);
}

BENCHMARK(fillFreshMemory)->Apply(sizesAndGrowth);
BENCHMARK(firstWrite)->Apply(sizesAndGrowth);
BENCHMARK_CAPTURE(reset, fresh, PointRecordLayout::None, 0.0, PointRecordLayout::Plain)
    ->Apply(sizes);
BENCHMARK_CAPTURE(reset, growBy20Percent, PointRecordLayout::Plain, 1 / 1.2,
                  PointRecordLayout::Plain)
    ->Apply(sizes);
BENCHMARK_CAPTURE(reset, shrinkBy20Percent, PointRecordLayout::Plain, 1.25,
                  PointRecordLayout::Plain)
    ->Apply(sizes);
BENCHMARK_CAPTURE(reset, sameSize, PointRecordLayout::Plain, 1.0, PointRecordLayout::Plain)
    ->Apply(sizes);
BENCHMARK_CAPTURE(reset, newLayout, PointRecordLayout::Plain, 1.0,
                  PointRecordLayout::WithReflection)
    ->Apply(sizes);

}  // namespace
