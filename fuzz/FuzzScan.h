// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib>
#include <memory>
#include <vector>

#include "FuzzFile.h"
#include "Ovr/FormatRegistry.h"
#include "Ovr/Vardex/CorvinMetaData.h"
#include "support/MemoryScan.h"

namespace Fuzz {

/// Lists a file's scans and loads each, points and times. A listing that succeeds without a scan,
/// and records that outnumber the file's bytes, are faults that no sanitizer sees.
inline void readScans(const Ovr::Formats::Format& format, const std::uint8_t* data,
                      std::size_t size) {
    const FuzzFile file(data, size);
    std::vector<Ovr::ScanListing> scans;
    const Ovr::ErrorPtr refused = format.list(file.path(), scans);
    if (!refused && scans.empty()) {
        std::abort();
    }
    for (Ovr::ScanListing& scan : scans) {
        scan.source.project = std::make_shared<Ovr::ScanProject>();
        const auto reader = format.makeReader(scan.source);
        Support::MemoryScan memory;
        Ovr::VardexLib::CorvinMobileMetaData metaData;
        Ovr::StatisticsReport statistics;
        const std::uint64_t all = ~std::uint64_t{0};
        if (reader->loadPoints({memory, &metaData, all}, statistics)) {
            continue;
        }
        if (memory.records.size() > size) {
            std::abort();
        }
        Support::MemoryTimes times(memory.records.size());
        reader->loadTimes({times, all, {}, &metaData, nullptr, nullptr});
    }
}

}  // namespace Fuzz
