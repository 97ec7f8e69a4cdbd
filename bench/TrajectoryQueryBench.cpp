// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Claim: a query costs hardly more than the copy of the nodes that it works on. Compare each with
// CopyOfNodes of the same size.

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "TrajectoryBenchNodes.h"

namespace {

using Vardex::Bench::makeWalk;
using Nodes = std::vector<Ovr::VardexLib::TrajectoryNode>;
using Point = Tq_1_1::Vec3d<double>;

void CopyOfNodes(benchmark::State& state) {
    const Nodes nodes = makeWalk(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        Nodes copy = nodes;
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <typename Query>
void ask(benchmark::State& state, const Query& query) {
    const auto set = Vardex::Bench::makeScan(makeWalk(static_cast<std::size_t>(state.range(0))));
    const Hx::IScanPointTimes& times = *set;
    for (auto _ : state) {
        benchmark::DoNotOptimize(query(times));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// The fraction around the middle of the walk.
void askFraction(benchmark::State& state, double within) {
    const double middle = static_cast<double>(state.range(0)) / Vardex::Bench::kNodesPerSecond / 2;
    const Point point(middle * std::cos(middle), middle * std::sin(middle), 1.6);
    ask(state, [&](const Hx::IScanPointTimes& times) {
        const auto belongs = [&](const Point& p) {
            const Point d = p - point;
            return d.x * d.x + d.y * d.y <= within * within;
        };
        double begin = 0.0;
        double end = 0.0;
        times.getTrajectoryFractionAtPoint(point, belongs, begin, end);
        return end - begin;
    });
}

void FractionNearPoint(benchmark::State& state) {
    askFraction(state, 5.0);
}

void FractionEverywhere(benchmark::State& state) {
    askFraction(state, 1e9);
}

void SelectedTrajectory(benchmark::State& state) {
    const Hx::PC2TimeFilter filter(0.25, 0.75);
    ask(state, [&](const Hx::IScanPointTimes& times) {
        return times.getSelectedTrajectory(filter).size();
    });
}

BENCHMARK(CopyOfNodes)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(FractionNearPoint)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(FractionEverywhere)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(SelectedTrajectory)->Arg(10000)->Arg(100000)->Arg(1000000);

}  // namespace
