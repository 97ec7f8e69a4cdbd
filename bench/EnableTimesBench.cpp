// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Claim: giving every record a time costs less than copying the same bytes into fresh memory, for
// most of its memory stays where it is. Compare AddPointTimes with CopyIntoFreshMemory of the same
// size. Both run on one thread; what is compared is the time of its processor, so that other work
// on the machine counts little.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <memory>

#include "mobile/core/TimedRecords.h"

namespace {

using Vardex::PlainRecord;
using Vardex::PointRecordLayout;
using Vardex::PointRecordStore;
using Vardex::RecordLayouts;
using Vardex::ReflectionRecord;

double secondsSince(std::clock_t start) {
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

template <typename Record>
void AddPointTimes(benchmark::State& state) {
    const PointRecordLayout layout = RecordLayouts::of<Record>();
    const auto count = static_cast<std::uint32_t>(state.range(0));
    for (auto _ : state) {
        PointRecordStore store;
        store.resetRecords(1, count, layout);
        std::ranges::fill(store.records<Record>(), Record{});  // points that have been written
        malloc_trim(0);  // a first conversion finds no memory that is mapped already
        const std::clock_t start = std::clock();
        Vardex::TimedRecords::addPointTimes(store, 1, count);
        state.SetIterationTime(secondsSince(start));
        benchmark::DoNotOptimize(&store.pointAt(0));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <typename Record>
void CopyIntoFreshMemory(benchmark::State& state) {
    constexpr std::size_t kMeanSize = (sizeof(Record) + sizeof(typename Record::Timed)) / 2;
    const std::size_t bytes = static_cast<std::size_t>(state.range(0)) * kMeanSize;
    const auto from = std::make_unique<unsigned char[]>(bytes);
    for (auto _ : state) {
        malloc_trim(0);
        const std::clock_t start = std::clock();
        const std::unique_ptr<unsigned char[]> to(new unsigned char[bytes]);
        std::memcpy(to.get(), from.get(), bytes);
        benchmark::DoNotOptimize(to.get());
        state.SetIterationTime(secondsSince(start));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(1'000'000)->Arg(10'000'000)->Arg(50'000'000)->Arg(100'000'000);
    bench->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(AddPointTimes<PlainRecord>)->Apply(sizes);
BENCHMARK(AddPointTimes<ReflectionRecord>)->Apply(sizes);
BENCHMARK(CopyIntoFreshMemory<PlainRecord>)->Apply(sizes);
BENCHMARK(CopyIntoFreshMemory<ReflectionRecord>)->Apply(sizes);

}  // namespace
