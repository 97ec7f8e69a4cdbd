// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "HostExport.h"
#include "Ovr/Errors.h"
#include "Ovr/Locks.h"
#include "Ovr/Modification.h"
#include "Ovr/ServiceRegistry.h"

namespace Ovr {

/// Statistics of one value over the points of a scan.
struct ValueStatistic {
    double minimum = 0.0;
    double maximum = 0.0;
    double mean = 0.0;
    double standardDeviation = 0.0;
    std::uint64_t count = 0;
};

/// What a load found out on its way. Reflections are 0..65535, distances are in metres from the
/// scanner's own origin; a value that the file lacks gives no statistic.
struct StatisticsReport {
    std::optional<ValueStatistic> reflection;
    std::optional<ValueStatistic> distance;
};

}  // namespace Ovr

namespace Ovr::Interfaces {

/// The data of one scan: loads the points into the point set that it was made for.
class HOST_EXPORT IScanData {
  public:
    virtual ~IScanData();

    virtual std::unique_ptr<DataStructures::ScanDataModificationScope> createModificationScope(
        const DataStructures::ScanDataModification& what) = 0;

    /// Sizes the point set and writes its points, streaming the file.
    /// @param count       number of points to load at most
    /// @param statistics  filled on success
    /// @return empty on success; else the point set is left with no records, or as it was when
    ///         there is no reader for the file or the lock is not valid
    [[nodiscard]] virtual ErrorPtr loadPoints(std::uint64_t count, StatisticsReport& statistics,
                                              DataStructures::ScanDataModificationScope& scope,
                                              const IPointDataWriteLock& lock) = 0;

    /// The identifier under which the host's factory knows the point set's class.
    virtual std::string getPointSetClassIdentifier() const = 0;

    virtual ServiceRegistry& getServiceRegistry() = 0;

    /// What the readers noticed in files that they accepted, one line each, in order.
    virtual std::vector<std::string> getWarnings() const = 0;
};

}  // namespace Ovr::Interfaces
