// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Claims: asking a point set for a position for a time costs a fraction of a binary search over the
// nodes' times, and building the bins costs little more than reading the nodes once.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <vector>

#include "TrajectoryBenchNodes.h"
#include "trajectory/core/PoseMath.h"
#include "trajectory/core/TrajectoryCache.h"

namespace {

using Vardex::Bench::durationOf;
using Vardex::Bench::makeWalk;
using Nodes = std::vector<Ovr::VardexLib::TrajectoryNode>;
using Point = Tq_1_1::Vec3d<double>;

std::vector<double> makeTimes(double duration, bool ascending) {
    std::mt19937 generator(5);
    std::uniform_real_distribution<double> within(0.0, duration);
    std::vector<double> times(1 << 20);
    std::generate(times.begin(), times.end(), [&] { return within(generator); });
    if (ascending) {
        std::sort(times.begin(), times.end());
    }
    return times;
}

template <typename Lookup>
void lookUp(benchmark::State& state, double duration, const Lookup& lookup) {
    const std::vector<double> times = makeTimes(duration, state.range(1) != 0);
    for (auto _ : state) {
        double sum = 0.0;
        for (const double time : times) {
            sum += lookup(time).x;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(times.size()));
    state.SetLabel(state.range(1) != 0 ? "ascending times" : "random times");
}

void PositionForTime(benchmark::State& state) {
    const Nodes nodes = makeWalk(static_cast<std::size_t>(state.range(0)));
    const auto set = Vardex::Bench::makeScan(nodes);
    const Hx::IScanPointTimes& times = *set;
    lookUp(state, durationOf(nodes),
           [&](double time) { return times.getRecordingPositionForTime(time).value_or(Point()); });
}

void BinarySearch(benchmark::State& state) {
    const Nodes nodes = makeWalk(static_cast<std::size_t>(state.range(0)));
    std::vector<double> nodeTimes;
    for (const auto& node : nodes) {
        nodeTimes.push_back(node.time);
    }
    lookUp(state, durationOf(nodes), [&](double time) {
        const auto found =
            std::lower_bound(nodeTimes.begin(), nodeTimes.end() - 1, nodeTimes.front() + time);
        return Vardex::PoseMath::positionOf(
            nodes[static_cast<std::size_t>(found - nodeTimes.begin())]);
    });
}

void FillBins(benchmark::State& state) {
    const Nodes nodes = makeWalk(static_cast<std::size_t>(state.range(0)));
    Vardex::TrajectoryCache cache;
    for (auto _ : state) {
        cache.fill(nodes, durationOf(nodes));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void ReadNodes(benchmark::State& state) {
    const Nodes nodes = makeWalk(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        double sum = 0.0;
        for (const auto& node : nodes) {
            sum += node.time + node.pose[12] + node.pose[13] + node.pose[14];
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(PositionForTime)->ArgsProduct({{100000}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK(BinarySearch)->ArgsProduct({{100000}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK(FillBins)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadNodes)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

}  // namespace
