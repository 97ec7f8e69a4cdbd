// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Vardex/CorvinMobileScanData.h"

#include <memory>
#include <new>
#include <utility>

#include "Ovr/Vardex/IScanPointTimes.h"
#include "formats/ScanFormat.h"
#include "formats/TrajectoryReader.h"

namespace Ovr::VardexLib {

using Interfaces::ErrorCode;

namespace {

ErrorPtr noTimeService(const ScanSource& source) {
    return makeError(ErrorCode::NoTimeService,
                     {source.file.string(), "", "no service that takes point times", ""});
}

}  // namespace

CorvinMobileScanData::CorvinMobileScanData(Interfaces::IScanIntegration& integration)
    : CorvinScanData(integration, std::make_shared<CorvinMobileMetaData>()) {}

CorvinMobileScanData::~CorvinMobileScanData() = default;

std::string CorvinMobileScanData::getStaticPointSetClassIdentifier() {
    return "Vardex.CorvinMobileScan";
}

std::string CorvinMobileScanData::getPointSetClassIdentifier() const {
    return getStaticPointSetClassIdentifier();
}

std::vector<TrajectoryNode> CorvinMobileScanData::getTrajectoryNodes() const {
    const std::lock_guard<std::mutex> guard(nodesMutex_);
    return nodes_;
}

void CorvinMobileScanData::setTrajectoryNodes(const std::vector<TrajectoryNode>& nodes) {
    std::vector<TrajectoryNode> copy = nodes;
    const std::lock_guard<std::mutex> guard(nodesMutex_);
    nodes_.swap(copy);
}

ErrorPtr CorvinMobileScanData::readTrajectory(const IStructuredStreams& streams,
                                              std::vector<TrajectoryNode>& nodes) {
    std::vector<std::string> unheard;
    return readTrajectory(streams, nodes, unheard);
}

ErrorPtr CorvinMobileScanData::readTrajectory(const IStructuredStreams& streams,
                                              std::vector<TrajectoryNode>& nodes,
                                              std::vector<std::string>& warnings) {
    return Formats::readTrajectoryFile(streams.trajectoryFile(), streams.project().get(), nodes,
                                       warnings);
}

/// The trajectory that the scan holds, else that of its streams, which is kept.
ErrorPtr CorvinMobileScanData::fetchTrajectory(std::vector<TrajectoryNode>& nodes) {
    nodes = getTrajectoryNodes();
    if (!nodes.empty()) {
        return nullptr;
    }
    const auto streams = getIntegration().openStructuredStreams(false);
    if (!streams) {
        return nullptr;
    }
    std::vector<std::string> warnings;
    ErrorPtr error = readTrajectory(*streams, nodes, warnings);
    addWarnings(warnings);
    if (!error) {
        setTrajectoryNodes(nodes);
    }
    return error;
}

ErrorPtr CorvinMobileScanData::loadTimeStamps(const IPointDataExclusiveAccess& /*access*/,
                                              DataStructures::ScanDataModificationScope& /*scope*/,
                                              std::shared_ptr<DataStructures::IProgress> progress,
                                              std::shared_ptr<DataStructures::ICancelInfo> cancel) {
    const ScanSource source = getIntegration().getScanSource();
    const auto times = getServiceRegistry().getService<IScanPointTimes>();
    if (!times) {
        return noTimeService(source);
    }
    const auto format = Formats::FormatRegistry::the().find(source.file);
    if (!format) {
        return Formats::unknownExtension(source.file);
    }
    const auto metaData = std::dynamic_pointer_cast<CorvinMobileMetaData>(getMetaData());
    timeZero_.reset();
    try {
        // A trajectory that cannot be read is an error here: time zero would move to the earliest
        // point, and the times would no longer fit the trajectory once it is repaired.
        std::vector<TrajectoryNode> nodes;
        if (ErrorPtr error = fetchTrajectory(nodes)) {
            return error;
        }
        const auto reader = format->makeReader(source);
        double timeZero = 0.0;
        ErrorPtr error =
            reader->loadTimes({*times, pointLimit(), nodes, metaData.get(),
                               progress ? progress.get() : source.progress.get(),
                               cancel ? cancel.get() : source.cancel.get(), &timeZero});
        if (!error) {
            timeZero_ = timeZero;
        }
        addWarnings(reader->warnings());
        addNotes(reader->notes());
        return error;
    } catch (const std::bad_alloc&) {
        return makeError(ErrorCode::OutOfMemory, {source.file.string(), "", "", "more memory"});
    }
}

ErrorPtr CorvinMobileScanData::unloadTimeStamps(
    const IPointDataExclusiveAccess& /*access*/,
    DataStructures::ScanDataModificationScope& /*scope*/) {
    const auto times = getServiceRegistry().getService<IScanPointTimes>();
    if (!times) {
        return noTimeService(getIntegration().getScanSource());
    }
    timeZero_.reset();
    const auto [cols, rows] = getIntegration().getGridSize();
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < cols; ++col) {
            times->setTimeStamp(row, col, 0);
        }
    }
    return nullptr;
}

}  // namespace Ovr::VardexLib
