// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Vardex/CorvinScanData.h"

#include <new>
#include <utility>

#include "Ovr/FormatRegistry.h"
#include "Ovr/Origin.h"

namespace Ovr::VardexLib {

using Interfaces::ErrorCode;

CorvinScanData::CorvinScanData(Interfaces::IScanIntegration& integration,
                               std::shared_ptr<CorvinMetaData> metaData)
    : integration_(integration), metaData_(std::move(metaData)) {}

CorvinScanData::~CorvinScanData() = default;

std::unique_ptr<DataStructures::ScanDataModificationScope> CorvinScanData::createModificationScope(
    const DataStructures::ScanDataModification& what) {
    return std::make_unique<DataStructures::ScanDataModificationScope>(integration_, what);
}

ErrorPtr CorvinScanData::loadPoints(std::uint64_t count, StatisticsReport& statistics,
                                    DataStructures::ScanDataModificationScope& /*scope*/,
                                    const IPointDataWriteLock& lock) {
    const ScanSource source = integration_.getScanSource();
    if (!lock.isValid()) {
        return makeError(ErrorCode::General,
                         {source.file.string(), "", "a write lock without effect", "a valid one"});
    }
    const auto format = FormatRegistry::the().find(source.file);
    if (!format) {
        return unknownFormat(source.file);
    }
    ErrorPtr error;
    try {
        reader_ = format->makeReader(source);
        readersSource_ = source;
        error = readPoints(source, count, statistics);
    } catch (const std::bad_alloc&) {
        // First the points: there may be no memory for the message either.
        integration_.setNewSize(0, 0, false, false);
        return makeError(ErrorCode::OutOfMemory, {source.file.string(), "", "", "more memory"});
    } catch (...) {
        integration_.setNewSize(0, 0, false, false);
        throw;
    }
    if (error) {
        integration_.setNewSize(0, 0, false, false);
    }
    return error;
}

ErrorPtr CorvinScanData::readPoints(const ScanSource& source, std::uint64_t count,
                                    StatisticsReport& statistics) {
    chooseOrigin({getPointSetClassIdentifier(), {}, source}, *reader_, remarks_);
    const auto metaData = getMetaData();
    StatisticsReport found;
    ErrorPtr error = reader_->loadPoints({integration_,
                                          metaData.get(),
                                          count,
                                          {source.progress.get(), source.cancel.get()},
                                          remarks_},
                                         found);
    if (!error) {
        pointLimit_ = count;
        statistics = found;
    }
    return error;
}

ErrorPtr CorvinScanData::fetchReader(const ScanSource& source,
                                     std::shared_ptr<IScanReader>& reader) {
    if (!reader_ || readersSource_ != source) {
        const auto format = FormatRegistry::the().find(source.file);
        if (!format) {
            return unknownFormat(source.file);
        }
        reader_ = format->makeReader(source);
        readersSource_ = source;
    }
    reader = reader_;
    return nullptr;
}

void CorvinScanData::setMetaData(std::shared_ptr<CorvinMetaData> metaData) {
    metaData_.set(std::move(metaData));
}

}  // namespace Ovr::VardexLib
