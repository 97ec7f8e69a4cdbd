// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Single-point access through the host's interface, per layout and form of address, against a raw
// loop over records of the same size and against one virtual call to them without any test.

#include <benchmark/benchmark.h>

#include <bit>
#include <cstdint>
#include <vector>

#include "BenchPointSets.h"

namespace {

using Hx::PointSet;
using Hx::SelectItem;
using Vardex::PlainRecord;
using Vardex::PointRecordLayout;
using Vardex::ReflectionRecord;
using Vardex::ReflectionTimeRecord;
using Vardex::ScanPoint;
using Vardex::TimeRecord;

constexpr int kRows = 1000;

int colsOf(const benchmark::State& state) {
    return static_cast<int>(state.range(0) / kRows);
}

std::uint64_t bitsOf(const ScanPoint& point) {
    return std::uint64_t{std::bit_cast<std::uint32_t>(point.x)} +
           std::bit_cast<std::uint32_t>(point.y) + std::bit_cast<std::uint32_t>(point.z);
}

/// Made anew for each run: it must not take longer than what is measured.
std::vector<ScanPoint> makePoints(std::size_t count) {
    std::vector<ScanPoint> points(count);
    for (std::size_t i = 0; i < count; ++i) {
        const float along = static_cast<float>(i % 60000) * 0.001F - 30.0F;
        points[i].setPosition({along, -along, 0.5F * along});
        points[i].color = {{1, 2, 3, 1}};
    }
    return points;
}

template <typename Record>
std::vector<Record> recordsOf(const std::vector<ScanPoint>& points) {
    std::vector<Record> records(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        records[i].point = points[i];
    }
    return records;
}

void finish(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <typename Record>
void readRaw(benchmark::State& state) {
    const auto records = recordsOf<Record>(makePoints(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (const Record& record : records) {
            sum += bitsOf(record.point);
        }
        benchmark::DoNotOptimize(sum);
    }
    finish(state);
}

template <typename Record>
void readOpaque(benchmark::State& state) {
    const auto count = static_cast<std::uint64_t>(state.range(0));
    const auto points = Vardex::Bench::makeOpaquePoints(recordsOf<Record>(makePoints(count)));
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (std::uint64_t i = 0; i < count; ++i) {
            sum += bitsOf(points->pointAt(i));
        }
        benchmark::DoNotOptimize(sum);
    }
    finish(state);
}

std::shared_ptr<PointSet> filledSet(const benchmark::State& state, PointRecordLayout layout) {
    auto set = Vardex::Bench::makePointSet(layout, kRows, colsOf(state));
    const auto points = makePoints(static_cast<std::size_t>(state.range(0)));
    for (std::uint64_t i = 0; i < points.size(); ++i) {
        set->setScanPt(i, points[i]);
    }
    return set;
}

/// Runs over the flat indices; access(set, index) gives something to sum up.
template <typename Access>
void readFlat(benchmark::State& state, PointRecordLayout layout, Access access) {
    const auto set = filledSet(state, layout);
    const PointSet& points = *set;
    const auto count = static_cast<std::uint64_t>(state.range(0));
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (std::uint64_t index = 0; index < count; ++index) {
            sum += access(points, index);
        }
        benchmark::DoNotOptimize(sum);
    }
    finish(state);
}

/// Runs over the grid cell by cell; access(set, row, col) gives something to sum up.
template <typename Access>
void readGrid(benchmark::State& state, PointRecordLayout layout, Access access) {
    const auto set = filledSet(state, layout);
    const PointSet& points = *set;
    const int cols = colsOf(state);
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (int row = 0; row < kRows; ++row) {
            for (int col = 0; col < cols; ++col) {
                sum += access(points, row, col);
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    finish(state);
}

void readByItem(benchmark::State& state, PointRecordLayout layout) {
    readFlat(state, layout, [](const PointSet& set, std::uint64_t index) {
        return bitsOf(set.getScanPt(SelectItem{index, 0, 0, 0}));
    });
}

void readByIndex(benchmark::State& state, PointRecordLayout layout) {
    readFlat(state, layout,
             [](const PointSet& set, std::uint64_t index) { return bitsOf(set.getScanPt(index)); });
}

void readByCell(benchmark::State& state, PointRecordLayout layout) {
    readGrid(state, layout,
             [](const PointSet& set, int row, int col) { return bitsOf(set.getScanPt(row, col)); });
}

void colorByCell(benchmark::State& state, PointRecordLayout layout) {
    readGrid(state, layout, [](const PointSet& set, int row, int col) {
        return std::uint64_t{std::bit_cast<std::uint32_t>(set.getColor(row, col))};
    });
}

void reflectionByCell(benchmark::State& state, PointRecordLayout layout) {
    readGrid(state, layout, [](const PointSet& set, int row, int col) {
        return std::uint64_t{set.getReflection(row, col)};
    });
}

template <typename Record>
void writeRaw(benchmark::State& state) {
    const auto points = makePoints(static_cast<std::size_t>(state.range(0)));
    auto records = recordsOf<Record>(points);
    for (auto _ : state) {
        for (std::size_t i = 0; i < points.size(); ++i) {
            records[i].replacePoint(points[i]);
        }
        benchmark::ClobberMemory();
    }
    finish(state);
}

template <typename Record>
void writeOpaque(benchmark::State& state) {
    const auto points = makePoints(static_cast<std::size_t>(state.range(0)));
    const auto set = Vardex::Bench::makeOpaquePoints(recordsOf<Record>(points));
    for (auto _ : state) {
        for (std::uint64_t i = 0; i < points.size(); ++i) {
            set->setPointAt(SelectItem{i, 0, 0, 0}, points[i]);
        }
        benchmark::ClobberMemory();
    }
    finish(state);
}

/// Writes points that lie in an array, as a reader that decodes in blocks does.
void writeByItem(benchmark::State& state, PointRecordLayout layout) {
    const auto points = makePoints(static_cast<std::size_t>(state.range(0)));
    const auto set = filledSet(state, layout);  // no page of it is new
    for (auto _ : state) {
        for (std::uint64_t i = 0; i < points.size(); ++i) {
            set->setScanPt(SelectItem{i, 0, 0, 0}, points[i]);
        }
        benchmark::ClobberMemory();
    }
    finish(state);
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(10'000)->Arg(10'000'000)->Unit(benchmark::kMillisecond);
}
void growth(benchmark::internal::Benchmark* bench) {
    bench->Arg(50'000'000)->Arg(100'000'000)->Unit(benchmark::kMillisecond);
}

#define BENCHMARK_EACH_LAYOUT(function)                                                           \
    BENCHMARK_CAPTURE(function, Plain, PointRecordLayout::Plain)->Apply(sizes);                   \
    BENCHMARK_CAPTURE(function, WithReflection, PointRecordLayout::WithReflection)->Apply(sizes); \
    BENCHMARK_CAPTURE(function, WithTime, PointRecordLayout::WithTime)->Apply(sizes);             \
    BENCHMARK_CAPTURE(function, WithReflectionAndTime, PointRecordLayout::WithReflectionAndTime)  \
        ->Apply(sizes)

BENCHMARK(readRaw<PlainRecord>)->Apply(sizes);
BENCHMARK(readRaw<ReflectionRecord>)->Apply(sizes);
BENCHMARK(readRaw<TimeRecord>)->Apply(sizes);
BENCHMARK(readRaw<ReflectionTimeRecord>)->Apply(sizes);
BENCHMARK(readOpaque<PlainRecord>)->Apply(sizes);
BENCHMARK(readOpaque<ReflectionRecord>)->Apply(sizes);
BENCHMARK(readOpaque<TimeRecord>)->Apply(sizes);
BENCHMARK(readOpaque<ReflectionTimeRecord>)->Apply(sizes);
BENCHMARK_EACH_LAYOUT(readByItem);
BENCHMARK_EACH_LAYOUT(readByIndex);
BENCHMARK_EACH_LAYOUT(readByCell);
BENCHMARK_EACH_LAYOUT(colorByCell);
BENCHMARK_EACH_LAYOUT(reflectionByCell);
BENCHMARK(writeRaw<PlainRecord>)->Apply(sizes);
BENCHMARK(writeRaw<ReflectionRecord>)->Apply(sizes);
BENCHMARK(writeRaw<TimeRecord>)->Apply(sizes);
BENCHMARK(writeRaw<ReflectionTimeRecord>)->Apply(sizes);
BENCHMARK(writeOpaque<PlainRecord>)->Apply(sizes);
BENCHMARK(writeOpaque<ReflectionRecord>)->Apply(sizes);
BENCHMARK(writeOpaque<TimeRecord>)->Apply(sizes);
BENCHMARK(writeOpaque<ReflectionTimeRecord>)->Apply(sizes);
BENCHMARK_EACH_LAYOUT(writeByItem);
BENCHMARK_CAPTURE(readByItem, WithTime, PointRecordLayout::WithTime)->Apply(growth);
BENCHMARK_CAPTURE(writeByItem, WithTime, PointRecordLayout::WithTime)->Apply(growth);

}  // namespace
