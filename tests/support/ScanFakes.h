// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Ovr/Errors.h"
#include "Ovr/IScanData.h"
#include "Ovr/Locks.h"
#include "Ovr/Modification.h"
#include "Ovr/ServiceRegistry.h"

/// Stand-ins for the scan-data service. They log each call and can refuse a given one.
namespace Vardex::Testing {

/// What happened, in order. It outlives everything that writes to it.
using CallLog = std::vector<std::string>;

/// Logs an entry now and another when it is destroyed.
class LoggedSpan {
  public:
    LoggedSpan(CallLog& log, const std::string& begin, std::string end)
        : log_(log), end_(std::move(end)) {
        log_.push_back(begin);
    }
    LoggedSpan(const LoggedSpan&) = delete;
    LoggedSpan& operator=(const LoggedSpan&) = delete;
    ~LoggedSpan() { log_.push_back(end_); }

  private:
    CallLog& log_;
    std::string end_;
};

/// Write locks and exclusive accesses, numbered from 1 in the order of the requests.
class FakeLocks final : public Ovr::IPointDataLocks {
  public:
    explicit FakeLocks(CallLog& log) : log_(log) {}

    int refusedLock = 0;  ///< number of the request that gets no lock; 0 for none
    int invalidLock = 0;  ///< number of the request that gets a lock that is not valid
    bool refuseAccess = false;

    std::unique_ptr<Ovr::IPointDataWriteLock> getWriteLock(int timeout) override;
    std::unique_ptr<Ovr::IPointDataExclusiveAccess> getExclusiveAccess(
        const Ovr::IPointDataWriteLock& lock) override;

  private:
    CallLog& log_;
    int requests_ = 0;
};

/// A service error that logs its destruction.
class LoggedError final : public Ovr::ServiceError {
  public:
    LoggedError(CallLog& log, Ovr::Interfaces::ErrorCode code)
        : ErrorWithCode(code, "made by a test"), log_(log) {}
    ~LoggedError() override { log_.push_back("error released"); }

  private:
    CallLog& log_;
};

/// Scan data that load points by a function of the test.
class FakeScanData final : public Ovr::Interfaces::IScanData,
                           public Ovr::DataStructures::IModificationListener {
  public:
    explicit FakeScanData(CallLog& log) : log_(log) {}

    std::function<Ovr::ErrorPtr(Ovr::StatisticsReport&)> load;
    Ovr::DataStructures::ScanDataModification modified;  ///< of the last scope

    std::unique_ptr<Ovr::DataStructures::ScanDataModificationScope> createModificationScope(
        const Ovr::DataStructures::ScanDataModification& what) override;
    Ovr::ErrorPtr loadPoints(std::uint64_t count, Ovr::StatisticsReport& statistics,
                             Ovr::DataStructures::ScanDataModificationScope& scope,
                             const Ovr::IPointDataWriteLock& lock) override;
    std::string getPointSetClassIdentifier() const override { return "Fake.PointSet"; }
    Ovr::ServiceRegistry& getServiceRegistry() override { return services_; }
    std::vector<std::string> getWarnings() const override { return {}; }

  private:
    void modificationBegun(const Ovr::DataStructures::ScanDataModification& what) override;
    void modificationEnded(const Ovr::DataStructures::ScanDataModification& what) override;

    CallLog& log_;
    const Ovr::DataStructures::ScanDataModificationScope* scope_ = nullptr;  ///< the last one
    Ovr::ServiceRegistry services_;
};

}  // namespace Vardex::Testing
