// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Claim: the export writes the bytes of plain stream formatting in a fraction of its time. Compare
// each target with its Styled twin, whose locale has no name and so leaves the numbers to the
// stream.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <locale>
#include <sstream>
#include <vector>

#include "TrajectoryBenchNodes.h"
#include "trajectory/core/TrajectoryText.h"

namespace {

enum class Formatting { Plain, Styled };

void setFormatting(std::ostream& out, Formatting formatting) {
    if (formatting == Formatting::Styled) {
        out.imbue(std::locale(std::locale::classic(), new std::numpunct<char>));
    }
}

void ToMemory(benchmark::State& state, Formatting formatting) {
    const auto nodes = Vardex::Bench::makeWalk(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        std::ostringstream out;
        setFormatting(out, formatting);
        Vardex::TrajectoryText::writeTrajectory(out, nodes, Tq_1_1::Mat4d<double>::identity());
        benchmark::DoNotOptimize(out.tellp());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void ToFile(benchmark::State& state, Formatting formatting) {
    const auto nodes = Vardex::Bench::makeWalk(static_cast<std::size_t>(state.range(0)));
    const auto file = std::filesystem::temp_directory_path() / "vardex-trajectory-bench.txt";
    for (auto _ : state) {
        std::ofstream out(file);
        setFormatting(out, formatting);
        Vardex::TrajectoryText::writeTrajectory(out, nodes, Tq_1_1::Mat4d<double>::identity());
        if (!out) {
            state.SkipWithError("the file cannot be written");
        }
    }
    std::filesystem::remove(file);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK_CAPTURE(ToMemory, Plain, Formatting::Plain)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ToMemory, Styled, Formatting::Styled)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ToFile, Plain, Formatting::Plain)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ToFile, Styled, Formatting::Styled)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
