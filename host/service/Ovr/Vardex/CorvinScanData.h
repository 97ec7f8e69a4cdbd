// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "HostExport.h"
#include "Ovr/Guarded.h"
#include "Ovr/IScanData.h"
#include "Ovr/IScanIntegration.h"
#include "Ovr/Remarks.h"
#include "Ovr/ScanFormat.h"
#include "Ovr/Vardex/CorvinMetaData.h"

namespace Ovr::VardexLib {

/// What the stationary and the mobile scan data have in common.
class HOST_EXPORT CorvinScanData : public Interfaces::IScanData {
  public:
    CorvinScanData(const CorvinScanData&) = delete;
    CorvinScanData& operator=(const CorvinScanData&) = delete;
    ~CorvinScanData() override;

    std::unique_ptr<DataStructures::ScanDataModificationScope> createModificationScope(
        const DataStructures::ScanDataModification& what) override;
    /// The file's format is that of FormatRegistry::find. The project's origin is chosen before.
    [[nodiscard]] ErrorPtr loadPoints(std::uint64_t count, StatisticsReport& statistics,
                                      DataStructures::ScanDataModificationScope& scope,
                                      const IPointDataWriteLock& lock) override;
    ServiceRegistry& getServiceRegistry() override { return services_; }
    std::vector<std::string> getWarnings() const override { return remarks_.warnings(); }
    /// What the readers found out that gives no cause for concern, one line each, in order.
    std::vector<std::string> getNotes() const { return remarks_.notes(); }

    /// Shared with the caller; empty only after setMetaData with an empty pointer.
    /// Threads: any.
    std::shared_ptr<CorvinMetaData> getMetaData() const { return metaData_.get(); }
    void setMetaData(std::shared_ptr<CorvinMetaData> metaData);

    Interfaces::IScanIntegration& getIntegration() const { return integration_; }

  protected:
    /// @param integration  must outlive the scan data (it owns them)
    CorvinScanData(Interfaces::IScanIntegration& integration,
                   std::shared_ptr<CorvinMetaData> metaData);

    /// The reader of the scan: that of the last load of points as long as the source is the same.
    /// @return the error for a file that no format takes, with @p reader untouched
    /// Requires: the scan's write lock.
    [[nodiscard]] ErrorPtr fetchReader(const ScanSource& source,
                                       std::shared_ptr<IScanReader>& reader);

    /// What all readers of this scan have to say.
    Remarks& remarks() { return remarks_; }

    /// Points that the last load was allowed to load.
    std::uint64_t pointLimit() const { return pointLimit_; }

  private:
    [[nodiscard]] ErrorPtr readPoints(const ScanSource& source, std::uint64_t count,
                                      StatisticsReport& statistics);

    Interfaces::IScanIntegration& integration_;
    Guarded<std::shared_ptr<CorvinMetaData>> metaData_;
    ServiceRegistry services_;
    Remarks remarks_;
    ScanSource readersSource_;
    std::shared_ptr<IScanReader> reader_;  ///< of readersSource_; empty before the first load
    std::uint64_t pointLimit_ = ~std::uint64_t{0};
};

}  // namespace Ovr::VardexLib
