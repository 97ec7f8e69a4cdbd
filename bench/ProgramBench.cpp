// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Whole commands of scanhost next to the bare import of the same file through the module, into
// records with times.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Application.h"
#include "RegisterFormats.h"
#include "las/LasWriter.h"
#include "report/Console.h"
#include "session/MobileScan.h"
#include "session/ModuleSession.h"
#include "session/ProjectImport.h"
#include "support/TempFolder.h"

namespace {

constexpr double kZero = 1000.0;     // time of the first pose [s]
constexpr double kDuration = 600.0;  // [s]
constexpr int kNodes = 6000;

/// A walk of so many points with its trajectory.
class Walk {
  public:
    Walk(std::int64_t points, bool inOrder) {
        Ovr::Formats::LasWriter writer;
        require(writer.open(file(), {.expectedCount = static_cast<std::uint64_t>(points),
                                     .colored = true}) == nullptr);
        std::mt19937_64 random(1);
        std::uniform_real_distribution<double> part(0.0, 1.0);
        for (std::int64_t i = 0; i < points; ++i) {
            const double t =
                inOrder ? static_cast<double>(i) / static_cast<double>(points) : part(random);
            const double angle = 600.0 * t;
            Ovr::Formats::LasPoint point;
            point.position = {20.0 * std::cos(angle), 20.0 * std::sin(angle), 3.0 * part(random)};
            point.intensity = static_cast<std::uint16_t>(random());
            point.time = kZero + kDuration * t;
            point.color = {40000, static_cast<std::uint16_t>(random()), 300};
            require(writer.write(point) == nullptr);
        }
        require(writer.finish() == nullptr);
        std::ofstream nodes(folder_.path() / "walk.txt");
        for (int i = 0; i <= kNodes; ++i) {
            const double t = static_cast<double>(i) / kNodes;
            nodes << std::to_string(kZero + kDuration * t) << ' ' << 5.0 * std::cos(6.0 * t) << ' '
                  << 5.0 * std::sin(6.0 * t) << " 1.5 0 0 0 1\n";
        }
    }

    std::string file() const { return (folder_.path() / "walk.las").string(); }
    std::string output(const std::string& name) const { return (folder_.path() / name).string(); }

    static void require(bool good) {
        if (!good) {
            std::cerr << "the program does not do what is measured\n";
            std::exit(1);
        }
    }

  private:
    Support::TempFolder folder_;
};

const Walk& walkOf(std::int64_t points, bool inOrder) {
    static std::map<std::pair<std::int64_t, bool>, std::unique_ptr<Walk>> walks;
    auto& walk = walks[{points, inOrder}];
    if (!walk) {
        walk = std::make_unique<Walk>(points, inOrder);
    }
    return *walk;
}

void run(benchmark::State& state, const std::vector<std::string>& arguments) {
    for (auto _ : state) {
        std::ostringstream out;
        Walk::require(ScanHost::runApplication(arguments, out, std::cerr) ==
                      ScanHost::ExitCode::Done);
        benchmark::DoNotOptimize(out);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void importWithTimes(benchmark::State& state) {
    Ovr::Formats::registerFormats();
    ScanHost::ScanOptions options;
    options.files = {walkOf(state.range(0), false).file()};
    for (auto _ : state) {
        std::ostringstream out;
        ScanHost::Console console(out, std::cerr);
        ScanHost::ModuleSession session;
        const ScanHost::ImportedScan scan =
            ScanHost::importOne(session, console, options, ScanHost::Content::PointsForTimes);
        ScanHost::MobileScan mobile(scan, console);
        mobile.loadTrajectory();
        mobile.requireTimes();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
void info(benchmark::State& state) {
    run(state, {"info", walkOf(state.range(0), false).file()});
}
void where(benchmark::State& state) {
    run(state, {"where", walkOf(state.range(0), false).file(), "--at", "100"});
}
void near(benchmark::State& state) {
    run(state, {"near", walkOf(state.range(0), false).file(), "--point", "5,1,1", "--within", "2"});
}
void path(benchmark::State& state) {
    run(state, {"path", walkOf(state.range(0), false).file(), "--from", "0.4", "--to", "0.5"});
}
void sort(benchmark::State& state, bool inOrder) {
    const Walk& walk = walkOf(state.range(0), inOrder);
    run(state, {"sort", walk.file(), "-o", walk.output("sorted.las"), "--force"});
}
void sortRandom(benchmark::State& state) {
    sort(state, false);
}
void sortSorted(benchmark::State& state) {
    sort(state, true);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(20'000)->Arg(1'000'000)->Arg(20'000'000)->Unit(benchmark::kMillisecond);
    benchmark->UseRealTime();
}

BENCHMARK(importWithTimes)->Apply(sizes);
BENCHMARK(info)->Apply(sizes);
BENCHMARK(where)->Apply(sizes);
BENCHMARK(near)->Apply(sizes);
BENCHMARK(path)->Apply(sizes);
BENCHMARK(sortRandom)->Apply(sizes);
BENCHMARK(sortSorted)->Apply(sizes);

}  // namespace
