// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Vardex/CorvinScanData.h"

#include <new>
#include <utility>

#include "Ovr/FormatRegistry.h"

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
    const auto metaData = metaData_;
    StatisticsReport found;
    ErrorPtr error;
    try {
        const auto reader = format->makeReader(source);
        error = reader->loadPoints({integration_,
                                    metaData.get(),
                                    count,
                                    {source.progress.get(), source.cancel.get()},
                                    remarks_},
                                   found);
    } catch (const std::bad_alloc&) {
        error = makeError(ErrorCode::OutOfMemory, {source.file.string(), "", "", "more memory"});
    } catch (...) {
        integration_.setNewSize(0, 0, false, false);
        throw;
    }
    if (error) {
        integration_.setNewSize(0, 0, false, false);
        return error;
    }
    pointLimit_ = count;
    statistics = found;
    return nullptr;
}

void CorvinScanData::setMetaData(std::shared_ptr<CorvinMetaData> metaData) {
    metaData_ = std::move(metaData);
}

}  // namespace Ovr::VardexLib
