// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Vardex/CorvinScanData.h"

#include <algorithm>
#include <new>
#include <utility>

#include "formats/ScanFormat.h"

namespace Ovr::VardexLib {

using Interfaces::ErrorCode;

namespace {

/// A file that is read twice says the same twice.
void addEachOnce(const std::vector<std::string>& lines, std::vector<std::string>& known) {
    for (const std::string& line : lines) {
        if (std::find(known.begin(), known.end(), line) == known.end()) {
            known.push_back(line);
        }
    }
}

}  // namespace

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
    const auto format = Formats::FormatRegistry::the().find(source.file);
    if (!format) {
        return Formats::unknownExtension(source.file);
    }
    const auto metaData = metaData_;
    StatisticsReport found;
    ErrorPtr error;
    try {
        const auto reader = format->makeReader(source);
        error = reader->loadPoints({integration_, metaData.get(), count}, found);
        addWarnings(reader->warnings());
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

void CorvinScanData::addWarnings(const std::vector<std::string>& warnings) {
    addEachOnce(warnings, warnings_);
}

void CorvinScanData::addNotes(const std::vector<std::string>& notes) {
    addEachOnce(notes, notes_);
}

}  // namespace Ovr::VardexLib
