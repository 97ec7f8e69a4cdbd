// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Sizing of the point records against filling fresh memory of the same size.

#include <benchmark/benchmark.h>

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
        state.ResumeTiming();
        store->resetRecords(count, 1, after);
        benchmark::DoNotOptimize(&store->pointAt(0));
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void sizes(benchmark::internal::Benchmark* bench) {
    // A fixed number of rounds: a reset to the same size takes no time, its preparation does.
    bench->Arg(10'000)
        ->Arg(1'000'000)
        ->Arg(10'000'000)
        ->Iterations(20)
        ->Unit(benchmark::kMillisecond);
}

BENCHMARK(fillFreshMemory)->Apply(sizes);
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
