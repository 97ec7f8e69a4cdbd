// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Origin.h"

#include "Ovr/FormatRegistry.h"
#include "Ovr/IStructuredStreams.h"
#include "Ovr/Vardex/CorvinMobileScanData.h"

namespace Ovr {

namespace {

bool hasOrigin(const ScanListing& scan) {
    return !scan.source.project || scan.source.project->origin();
}

/// Reads the trajectory, if there is one: that chooses the origin from its first pose.
void chooseFromTrajectory(const ScanSource& source) {
    const auto streams = findStructuredStreams(source);
    if (streams) {
        std::vector<VardexLib::TrajectoryNode> nodes;
        static_cast<void>(VardexLib::CorvinMobileScanData::readTrajectory(*streams, nodes));
    }
}

}  // namespace

void chooseOrigin(const ScanListing& scan, IScanReader& reader, Remarks& remarks) {
    if (hasOrigin(scan)) {
        return;
    }
    if (const auto place = reader.place(remarks)) {
        scan.source.project->chooseOrigin(*place);
    } else if (scan.classIdentifier ==
               VardexLib::CorvinMobileScanData::getStaticPointSetClassIdentifier()) {
        chooseFromTrajectory(scan.source);
    }
}

void chooseOrigin(const std::vector<ScanListing>& scans) {
    Remarks unheard;
    for (const ScanListing& scan : scans) {
        const auto format =
            hasOrigin(scan) ? nullptr : FormatRegistry::the().find(scan.source.file);
        if (format) {
            chooseOrigin(scan, *format->makeReader(scan.source), unheard);
        }
    }
}

}  // namespace Ovr
