// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Claim: giving every record a time costs little more than copying the same bytes into fresh
// memory. Compare AddPointTimes with CopyIntoFreshMemory of the same size.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <chrono>
#include <cstdint>
#include <cstring>
#include <memory>

#include "mobile/core/TimedRecords.h"

namespace {

using Vardex::PointRecordLayout;
using Vardex::PointRecordStore;

constexpr std::size_t kMeanRecordSize = 20;  // 18 bytes are read and 22 are written per record

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void AddPointTimes(benchmark::State& state) {
    const auto count = static_cast<std::uint32_t>(state.range(0));
    for (auto _ : state) {
        PointRecordStore store;
        store.resetRecords(1, count, PointRecordLayout::Plain);
        malloc_trim(0);  // a first conversion finds no memory that is mapped already
        const auto start = std::chrono::steady_clock::now();
        Vardex::TimedRecords::addPointTimes(store, 1, count);
        state.SetIterationTime(secondsSince(start));
        benchmark::DoNotOptimize(&store.pointAt(0));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void CopyIntoFreshMemory(benchmark::State& state) {
    const std::size_t bytes = static_cast<std::size_t>(state.range(0)) * kMeanRecordSize;
    auto from = std::make_unique<unsigned char[]>(bytes);
    for (auto _ : state) {
        malloc_trim(0);
        const auto start = std::chrono::steady_clock::now();
        const std::unique_ptr<unsigned char[]> to(new unsigned char[bytes]);
        std::memcpy(to.get(), from.get(), bytes);
        benchmark::DoNotOptimize(to.get());
        state.SetIterationTime(secondsSince(start));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(AddPointTimes)
    ->Arg(1000000)
    ->Arg(10000000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(CopyIntoFreshMemory)
    ->Arg(1000000)
    ->Arg(10000000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
