// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Polar conversions against the plain arc tangents and sines of the standard library.

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "stance/core/PolarMath.h"

namespace {

using Tq_1_1::Vec3d;
using Vardex::Polar;

template <typename T>
std::vector<Vec3d<T>> randomPoints(std::size_t count) {
    std::mt19937 random(20260417);
    std::uniform_real_distribution<T> coordinate(-30, 30);
    std::vector<Vec3d<T>> points(count);
    for (Vec3d<T>& p : points) {
        p = {coordinate(random), coordinate(random), coordinate(random)};
    }
    return points;
}

template <typename T>
Polar<T> plainPolar(const Vec3d<T>& p) {
    const T flat = std::sqrt(p.x * p.x + p.y * p.y);
    return {std::sqrt(flat * flat + p.z * p.z), std::atan2(-p.y, p.x), std::atan2(p.z, flat)};
}

template <typename T>
Vec3d<T> plainCartesian(const Polar<T>& p) {
    const T flat = p.radius * std::cos(p.vertical);
    return {flat * std::cos(p.horizontal), -flat * std::sin(p.horizontal),
            p.radius * std::sin(p.vertical)};
}

template <typename T, Polar<T> (*convert)(const Vec3d<T>&)>
void toPolar(benchmark::State& state) {
    const std::vector<Vec3d<T>> points = randomPoints<T>(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        for (const Vec3d<T>& p : points) {
            benchmark::DoNotOptimize(convert(p));
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <typename T, Vec3d<T> (*convert)(const Polar<T>&)>
void toCartesian(benchmark::State& state) {
    std::vector<Polar<T>> points;
    for (const Vec3d<T>& p : randomPoints<T>(static_cast<std::size_t>(state.range(0)))) {
        points.push_back(Vardex::PolarMath::scanOfCartesian(p));
    }
    for (auto _ : state) {
        for (const Polar<T>& p : points) {
            benchmark::DoNotOptimize(convert(p));
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(10'000)->Arg(1'000'000);
}

BENCHMARK(toPolar<double, plainPolar<double>>)->Apply(sizes);
BENCHMARK(toPolar<double, Vardex::PolarMath::scanOfCartesian<double>>)->Apply(sizes);
BENCHMARK(toPolar<double, Vardex::PolarMath::unifiedOfCartesian<double>>)->Apply(sizes);
BENCHMARK(toPolar<float, plainPolar<float>>)->Apply(sizes);
BENCHMARK(toPolar<float, Vardex::PolarMath::scanOfCartesian<float>>)->Apply(sizes);
BENCHMARK(toPolar<float, Vardex::PolarMath::unifiedOfCartesian<float>>)->Apply(sizes);
BENCHMARK(toCartesian<double, plainCartesian<double>>)->Apply(sizes);
BENCHMARK(toCartesian<double, Vardex::PolarMath::cartesianOfScan<double>>)->Apply(sizes);
BENCHMARK(toCartesian<double, Vardex::PolarMath::cartesianOfUnified<double>>)->Apply(sizes);
BENCHMARK(toCartesian<float, plainCartesian<float>>)->Apply(sizes);
BENCHMARK(toCartesian<float, Vardex::PolarMath::cartesianOfScan<float>>)->Apply(sizes);
BENCHMARK(toCartesian<float, Vardex::PolarMath::cartesianOfUnified<float>>)->Apply(sizes);

}  // namespace
