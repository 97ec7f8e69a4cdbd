// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Lists the scans of a file in the format FUZZ_FORMAT and loads each, points and times.

#include <cstdlib>
#include <memory>
#include <vector>

#include "FuzzFile.h"
#include "Ovr/FormatRegistry.h"
#include "Ovr/Origin.h"
#include "Ovr/Vardex/CorvinMetaData.h"
#include "RegisterFormats.h"
#include "support/MemoryScan.h"

namespace {

std::shared_ptr<const Ovr::IScanFormat> fuzzedFormat() {
    Ovr::Formats::registerFormats();
    for (const auto& format : Ovr::FormatRegistry::the().formats()) {
        if (format->name() == FUZZ_FORMAT) {
            return format;
        }
    }
    std::abort();
}

/// Records that outnumber what the file's bytes can hold are a fault that no sanitizer sees. Of
/// compressed points a byte holds up to 1200, but so many take the fuzzer too long.
void load(const Ovr::ScanListing& scan, Ovr::IScanReader& reader, std::size_t size) {
    constexpr std::uint64_t kMost = 50000;
    constexpr std::size_t kPointsPerByte = 1200;
    Ovr::Remarks remarks;
    Ovr::chooseOrigin(scan, reader, remarks);
    Support::MemoryScan memory;
    Ovr::VardexLib::CorvinMobileMetaData metaData;
    Ovr::StatisticsReport statistics;
    if (reader.loadPoints({memory, &metaData, kMost, {}, remarks}, statistics)) {
        return;
    }
    if (memory.records.size() > size * kPointsPerByte + 1) {
        std::abort();
    }
    Support::MemoryTimes times(memory.records.size());
    double timeZero = 0.0;
    static_cast<void>(reader.loadTimes({times, kMost, {}, &metaData, timeZero, {}, remarks}));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto format = fuzzedFormat();
    static_cast<void>(format->recognises({reinterpret_cast<const char*>(data), size}));
    const Fuzz::FuzzFile file(data, size);
    std::vector<Ovr::ScanListing> scans;
    const Ovr::ErrorPtr refused = format->list(file.path(), false, scans);
    if (!refused && scans.empty()) {
        std::abort();
    }
    for (Ovr::ScanListing& scan : scans) {
        scan.source.project = std::make_shared<Ovr::ScanProject>();
        load(scan, *format->makeReader(scan.source), size);
    }
    return 0;
}
