// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/PointSetIntegration.h"

#include "Hx/OvrPointSet.h"
#include "Tq/Path.h"

namespace Hx {

PointSetIntegration::PointSetIntegration(OvrPointSet& pointSet)
    : pointSet_(pointSet), locks_(Ovr::makePointDataLocks()) {}

PointSetIntegration::~PointSetIntegration() = default;

void PointSetIntegration::modificationBegun(const Ovr::DataStructures::ScanDataModification& what) {
    for (auto* listener : listeners_) {
        listener->modificationBegun(what);
    }
}

void PointSetIntegration::modificationEnded(const Ovr::DataStructures::ScanDataModification& what) {
    for (auto* listener : listeners_) {
        listener->modificationEnded(what);
    }
}

std::unique_ptr<Ovr::IPointDataWriteLock> PointSetIntegration::getPointDataWriteLock(int timeout) {
    return locks_->getWriteLock(timeout);
}

std::unique_ptr<Ovr::IPointDataExclusiveAccess> PointSetIntegration::getPointDataExclusiveAccess(
    const Ovr::IPointDataWriteLock& lock) {
    return locks_->getExclusiveAccess(lock);
}

bool PointSetIntegration::setNewSize(int rows, int cols, bool allocate, bool withReflection) {
    if (!OvrPointSet::isPossibleSize(rows, cols)) {
        return false;
    }
    const bool sized = pointSet_.resizePointStorage(rows, cols, allocate, withReflection);
    pointSet_.setValidData(sized && allocate);
    return sized;
}

bool PointSetIntegration::acceptsNewSize() const {
    return false;
}

bool PointSetIntegration::storesCartesian() const {
    return true;
}

bool PointSetIntegration::storesColor() const {
    return false;
}

bool PointSetIntegration::storesReflection() const {
    return false;
}

void PointSetIntegration::setPoint(int row, int col,
                                   const Tq_1_1::ScanPtColor<Tq_1_1::Vec3d<float>>& point) {
    pointSet_.setScanPt(row, col, point);
}

void PointSetIntegration::setReflection(int row, int col, std::uint16_t reflection) {
    pointSet_.setReflection(row, col, reflection);
}

std::shared_ptr<Ovr::IStructuredStreams> PointSetIntegration::openStructuredStreams(
    bool writable) const {
    if (openStreams_) {
        return openStreams_(writable);
    }
    return Ovr::findStructuredStreams(getScanSource());
}

Ovr::ScanSource PointSetIntegration::getScanSource() const {
    const FileInfo& info = pointSet_.getFileInfo();
    Ovr::ScanSource source = info.source;
    source.file = Tq_1_1::pathFromUtf8(info.path.toUtf8());
    return source;
}

Tq_1_1::SVec2d<int> PointSetIntegration::getGridSize() const {
    return pointSet_.getSize();
}

void PointSetIntegration::setScanData(std::unique_ptr<Ovr::Interfaces::IScanData> scanData) {
    scanData_ = std::move(scanData);
}

void PointSetIntegration::setPointDataLocks(std::shared_ptr<Ovr::IPointDataLocks> locks) {
    locks_ = std::move(locks);
}

void PointSetIntegration::setStructuredStreams(StreamsFunction open) {
    openStreams_ = std::move(open);
}

void PointSetIntegration::addModificationListener(
    Ovr::DataStructures::IModificationListener* listener) {
    listeners_.push_back(listener);
}

}  // namespace Hx
