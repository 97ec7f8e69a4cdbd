// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Claim: scans come in at 5 million LAS points and a million PTX lines a second or better on one
// core, and two cores read PTX lines at 1.7 times the rate of one. Compare each import with the
// plain sequential read of the same bytes, and the two kinds of import of PTX with each other.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <vector>

#include "Ovr/FormatRegistry.h"
#include "RegisterFormats.h"
#include "las/LasWriter.h"
#include "ptx/PtxReader.h"
#include "ptx/PtxWriter.h"
#include "support/LoadedScan.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using Ovr::Formats::LasWriter;
using Ovr::Formats::PtxWriter;

constexpr int kLasPoints = 2'000'000;
constexpr int kPtxColumns = 1000;
constexpr int kPtxRows = 500;
constexpr std::int64_t kPtxPoints = std::int64_t{kPtxColumns} * kPtxRows;

void require(const Ovr::ErrorPtr& error) {
    if (error) {
        std::cerr << error->message() << '\n';
        std::exit(1);
    }
}

/// A point on a long wall: coordinates with digits enough to be like those of a scanner.
Tq_1_1::Vec3d<double> wallPoint(int i) {
    const double t = i * 1e-4;
    return {5.0 * std::cos(t), 5.0 * std::sin(t), std::fmod(t, 3.0) + 0.1};
}

/// The files, made once and removed at the end.
struct Files {
    Support::TempFolder folder;
    fs::path las = folder.path() / "walk.las";
    fs::path ptx = folder.path() / "room.ptx";

    Files() {
        Ovr::Formats::registerFormats();
        LasWriter points;
        require(points.open(las, {.expectedCount = kLasPoints, .colored = true}));
        for (int i = 0; i < kLasPoints; ++i) {
            const auto value = static_cast<std::uint16_t>(i);
            require(points.write({wallPoint(i), value, {value, value, value}, i * 1e-5}));
        }
        require(points.finish());
        PtxWriter scan;
        require(scan.open(ptx, Ovr::Formats::Existing::Keep));
        require(scan.beginScan({.columns = kPtxColumns, .rows = kPtxRows, .colored = true}));
        for (int i = 0; i < kPtxColumns * kPtxRows; ++i) {
            require(scan.write({wallPoint(i), 0.5 + 0.4 * std::sin(i), {120, 60, 230}}));
        }
        require(scan.finish());
    }
};

const Files& files() {
    static const Files made;
    return made;
}

void finishLoop(benchmark::State& state, const fs::path& file, std::int64_t points) {
    state.SetItemsProcessed(state.iterations() * points);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fs::file_size(file)));
}

/// The baseline: every byte once, in blocks of a mebibyte.
void readBytes(benchmark::State& state, const fs::path& file, std::int64_t points) {
    std::vector<char> block(std::size_t{1} << 20U);
    for (auto _ : state) {
        std::ifstream in;
        in.rdbuf()->pubsetbuf(nullptr, 0);
        in.open(file, std::ios::binary);
        std::uint64_t sum = 0;
        while (in.read(block.data(), static_cast<std::streamsize>(block.size())) ||
               in.gcount() > 0) {
            sum += static_cast<unsigned char>(block[0]);
        }
        benchmark::DoNotOptimize(sum);
    }
    finishLoop(state, file, points);
}

template <typename Scan>
void import(benchmark::State& state, const fs::path& file, std::int64_t points) {
    for (auto _ : state) {
        Ovr::ScanSource source;
        source.file = file;
        source.project = std::make_shared<Ovr::ScanProject>();
        Scan scan(source);
        require(scan.loadPoints());
        benchmark::DoNotOptimize(scan.memory.records.data());
    }
    finishLoop(state, file, points);
}

void readLasBytes(benchmark::State& state) {
    readBytes(state, files().las, kLasPoints);
}
void importLas(benchmark::State& state) {
    import <Support::MobileScan>(state, files().las, kLasPoints);
}
void loadLasTimes(benchmark::State& state) {
    Ovr::ScanSource source;
    source.file = files().las;
    Support::MobileScan scan(source);
    require(scan.loadPoints());
    for (auto _ : state) {
        require(scan.loadTimes());
    }
    finishLoop(state, files().las, kLasPoints);
}
void readPtxBytes(benchmark::State& state) {
    readBytes(state, files().ptx, kPtxPoints);
}
void listPtx(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<Ovr::ScanListing> scans;
        require(Ovr::listScans(files().ptx, scans));
    }
    finishLoop(state, files().ptx, kPtxPoints);
}
void importPtx(benchmark::State& state, unsigned threads) {
    Ovr::Formats::PtxSharing sharing = Ovr::Formats::usualPtxSharing();
    sharing.threads = std::min(sharing.threads, threads);
    for (auto _ : state) {
        Ovr::ScanSource source;
        source.file = files().ptx;
        Support::MemoryScan memory;
        Ovr::StatisticsReport statistics;
        Ovr::Remarks remarks;
        const auto reader = Ovr::Formats::makePtxReader(source, sharing);
        require(reader->loadPoints({memory, nullptr, kPtxPoints, {}, remarks}, statistics));
        benchmark::DoNotOptimize(memory.records.data());
    }
    finishLoop(state, files().ptx, kPtxPoints);
}
void importPtxOnOneThread(benchmark::State& state) {
    importPtx(state, 0);
}
void importPtxOnAllCores(benchmark::State& state) {
    importPtx(state, ~0U);
}

BENCHMARK(readLasBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(importLas)->Unit(benchmark::kMillisecond);
BENCHMARK(loadLasTimes)->Unit(benchmark::kMillisecond);
BENCHMARK(readPtxBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(listPtx)->Unit(benchmark::kMillisecond);
// The CPU time is that of all threads.
BENCHMARK(importPtxOnOneThread)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();
BENCHMARK(importPtxOnAllCores)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

}  // namespace
