// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/ProjectFile.h"

#include <utility>

#include "Ovr/Vardex/CorvinMobileScanData.h"
#include "Ovr/Vardex/CorvinStanceScanData.h"

namespace Ovr {

std::string ProjectScan::classIdentifier() const {
    return kind == ProjectScanKind::Mobile
               ? VardexLib::CorvinMobileScanData::getStaticPointSetClassIdentifier()
               : VardexLib::CorvinStanceScanData::getStaticPointSetClassIdentifier();
}

ScanListing ProjectScan::listing(std::shared_ptr<ScanProject> project) const {
    ScanListing listing;
    listing.classIdentifier = classIdentifier();
    listing.name = name;
    listing.source.file = points;
    listing.source.scanIndex = scanIndex;
    listing.source.byteOffset = byteOffset;
    listing.source.line = line;
    listing.source.trajectory = trajectory;
    listing.source.clock = clock.value_or(ClockSettings{});
    listing.source.project = std::move(project);
    return listing;
}

}  // namespace Ovr
