// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <ostream>
#include <utility>

#include "Hx/TypeConversion.h"
#include "Tq/File.h"

#include "module/frame/IoResult.h"
#include "pointset/CorvinPointSet.h"

namespace Vardex {

namespace {

using namespace Hx::IOMessages;

constexpr Ovr::DataStructures::ScanDataModification kEverything{true, true, true, true,
                                                                true, true, true, true};
constexpr const wchar_t* kProjectExtension = L"ovr";
constexpr int kProjectSuffixLength = 4;  // the extension and its dot
constexpr int kOutputPrecision = 8;

template <typename HostStatistic>
HostStatistic hostStatistic(const Ovr::ValueStatistic& statistic) {
    return {statistic.minimum, statistic.maximum, statistic.mean, statistic.standardDeviation,
            statistic.count};
}

}  // namespace

int CorvinPointSet::import(Hx::FileInfo& fileInfo, Hx::AllocMain& /*alloc*/) {
    int result = IO_OK;
    try {
        result = importPoints(fileInfo);
    } catch (...) {
        updateCachedMetaData();
        throw;
    }
    updateCachedMetaData();
    return result;
}

int CorvinPointSet::importPoints(const Hx::FileInfo& fileInfo) {
    Ovr::Interfaces::IScanIntegration& integration = getIScanIntegration();
    const auto lock = integration.getPointDataWriteLock(kPointDataLockTimeout);
    if (lock == nullptr || !lock->isValid()) {
        return IO_LOCK_NOT_OBTAINED;
    }
    setFileInfo(fileInfo);

    Ovr::StatisticsReport statistics;
    // The load gets a lock of its own, which it may hand on; the outer one keeps others out until
    // the statistics and the name are set.
    const auto loadLock = integration.getPointDataWriteLock(kPointDataLockTimeout);
    if (loadLock == nullptr) {
        return IO_ERROR;
    }
    Ovr::ErrorPtr error;
    {
        Ovr::Interfaces::IScanData& scanData = getIScanData();
        const auto scope = scanData.createModificationScope(kEverything);
        error = scanData.loadPoints(getDefaultNumLoadPoints(), statistics, *scope, *loadLock);
    }
    if (error != nullptr) {
        return resultOf(error);
    }
    takeStatistics(statistics);
    return getId().isNullOrEmpty() ? nameAfterFile(fileInfo.path) : IO_OK;
}

void CorvinPointSet::takeStatistics(const Ovr::StatisticsReport& report) {
    Hx::ScanProperties& properties = getScanProperties();
    if (report.reflection && !properties.checkReflStatValid()) {
        setReflStat(hostStatistic<Hx::StatisticValLimits<double>>(*report.reflection), true,
                    Hx::ReflStatType::AllPoints, 0);
    }
    if (report.distance && !properties.checkDistStatValid()) {
        setDistStat(hostStatistic<Hx::StatisticValLimitsRounded<double>>(*report.distance), true);
        // Good enough to show. The host computes the distances again before it relies on them.
        properties.setDistStatValid(false);
    }
}

int CorvinPointSet::nameAfterFile(const Tq_1_1::String& path) {
    const auto file = Tq_1_1::File::fromString(path);
    if (file == nullptr) {
        return IO_INVALID_FILE_NAME;
    }
    const Tq_1_1::String name = file->getName();
    if (file->getExtension().compare(kProjectExtension) == 0) {
        setId(name.substring(0, static_cast<int>(name.length()) - kProjectSuffixLength));
    } else {
        setId(name);
    }
    return IO_OK;
}

int CorvinPointSet::writeScanDataId(std::ostream& out,
                                    std::shared_ptr<Hx::WriteContextBase> context) {
    Hx::WriteToScope scope(out, std::move(context));
    Hx::ModelOutFormat& mof = scope.getMof();
    const Hx::OutputFormat& format = scope.getWriteContext()->getFormat();

    Tq_1_1::String identifier;
    Hx::TypeConversion::convert(getIScanData().getPointSetClassIdentifier(), identifier);
    mof.startValue(identifier);
    out.precision(kOutputPrecision);
    Hx::DataOutFormat<Tq_1_1::String>(out, format).put(getId());
    mof.endValue();
    scope.close();
    return IO_OK;
}

}  // namespace Vardex
