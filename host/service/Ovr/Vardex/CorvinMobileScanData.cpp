// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Vardex/CorvinMobileScanData.h"

#include <memory>
#include <new>
#include <utility>

#include "Ovr/FormatRegistry.h"
#include "Ovr/Origin.h"
#include "Ovr/Vardex/IScanPointTimes.h"

namespace Ovr::VardexLib {

using Interfaces::ErrorCode;

namespace {

[[nodiscard]] ErrorPtr noTimeService(const ScanSource& source) {
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
    const auto nodes = heldTrajectory();
    return nodes ? *nodes : std::vector<TrajectoryNode>();
}

void CorvinMobileScanData::setTrajectoryNodes(const std::vector<TrajectoryNode>& nodes) {
    holdTrajectory(std::make_shared<const std::vector<TrajectoryNode>>(nodes));
}

ErrorPtr CorvinMobileScanData::readTrajectory(const IStructuredStreams& streams,
                                              std::vector<TrajectoryNode>& nodes) {
    Remarks unheard;
    return FormatRegistry::the().readTrajectory(streams, nodes, unheard);
}

ErrorPtr CorvinMobileScanData::fetchTrajectory(SharedTrajectory& nodes) {
    if (auto held = heldTrajectory()) {
        nodes = std::move(held);
        return nullptr;
    }
    const ScanSource source = getIntegration().getScanSource();
    // By a reader of its own: that of the points may be at work on another thread.
    chooseOrigin({{getPointSetClassIdentifier(), {}, source}});
    const auto streams = getIntegration().openStructuredStreams(false);
    if (!streams) {
        nodes = std::make_shared<const std::vector<TrajectoryNode>>();
        return nullptr;
    }
    std::vector<TrajectoryNode> read;
    ErrorPtr error = FormatRegistry::the().readTrajectory(*streams, read, remarks());
    if (!error) {
        nodes = std::make_shared<const std::vector<TrajectoryNode>>(std::move(read));
        holdTrajectory(nodes);
    }
    return error;
}

/// @return empty when there is none, or one without nodes
CorvinMobileScanData::SharedTrajectory CorvinMobileScanData::heldTrajectory() const {
    const std::lock_guard<std::mutex> guard(nodesMutex_);
    return nodes_ && !nodes_->empty() ? nodes_ : nullptr;
}

void CorvinMobileScanData::holdTrajectory(SharedTrajectory nodes) {
    const std::lock_guard<std::mutex> guard(nodesMutex_);
    nodes_.swap(nodes);
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
    timeZero_.reset();
    try {
        return readTimes(source, *times,
                         {progress ? progress.get() : source.progress.get(),
                          cancel ? cancel.get() : source.cancel.get()});
    } catch (const std::bad_alloc&) {
        return makeError(ErrorCode::OutOfMemory, {source.file.string(), "", "", "more memory"});
    }
}

ErrorPtr CorvinMobileScanData::readTimes(const ScanSource& source, IScanPointTimes& times,
                                         const DataStructures::Work& work) {
    std::shared_ptr<IScanReader> reader;
    if (ErrorPtr error = fetchReader(source, reader)) {
        return error;
    }
    // A trajectory that cannot be read is an error here: time zero would move to the earliest
    // point, and the times would no longer fit the trajectory once it is repaired.
    SharedTrajectory nodes;
    if (ErrorPtr error = fetchTrajectory(nodes)) {
        return error;
    }
    const auto metaData = std::dynamic_pointer_cast<CorvinMobileMetaData>(getMetaData());
    double timeZero = 0.0;
    ErrorPtr error =
        reader->loadTimes({times, pointLimit(), *nodes, metaData.get(), timeZero, work, remarks()});
    if (!error) {
        timeZero_ = timeZero;
    }
    return error;
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
