// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "support/ScanFakes.h"

#include <utility>

namespace Vardex::Testing {

namespace {

class FakeLock final : public Ovr::IPointDataWriteLock {
  public:
    FakeLock(CallLog& log, int number, bool valid)
        : span_(log, "lock " + std::to_string(number),
                "lock " + std::to_string(number) + " released"),
          valid_(valid) {}

    bool isValid() const override { return valid_; }

  private:
    LoggedSpan span_;
    bool valid_;
};

class FakeAccess final : public Ovr::IPointDataExclusiveAccess {
  public:
    explicit FakeAccess(CallLog& log) : span_(log, "access", "access released") {}

  private:
    LoggedSpan span_;
};

}  // namespace

std::unique_ptr<Ovr::IPointDataWriteLock> FakeLocks::getWriteLock(int timeout) {
    ++requests_;
    if (timeout != 5000) {
        log_.push_back("timeout " + std::to_string(timeout));
    }
    if (requests_ == refusedLock) {
        log_.push_back("lock " + std::to_string(requests_) + " refused");
        return nullptr;
    }
    return std::make_unique<FakeLock>(log_, requests_, requests_ != invalidLock);
}

std::unique_ptr<Ovr::IPointDataExclusiveAccess> FakeLocks::getExclusiveAccess(
    const Ovr::IPointDataWriteLock& /*lock*/) {
    if (refuseAccess) {
        log_.push_back("access refused");
        return nullptr;
    }
    return std::make_unique<FakeAccess>(log_);
}

std::unique_ptr<Ovr::DataStructures::ScanDataModificationScope>
FakeScanData::createModificationScope(const Ovr::DataStructures::ScanDataModification& what) {
    return std::make_unique<Ovr::DataStructures::ScanDataModificationScope>(*this, what);
}

Ovr::ErrorPtr FakeScanData::loadPoints(std::uint64_t /*count*/, Ovr::StatisticsReport& statistics,
                                       Ovr::DataStructures::ScanDataModificationScope& /*scope*/,
                                       const Ovr::IPointDataWriteLock& /*lock*/) {
    log_.push_back("load");
    return load ? load(statistics) : nullptr;
}

void FakeScanData::modificationBegun(const Ovr::DataStructures::ScanDataModification& what) {
    modified = what;
    log_.push_back("scope");
}

void FakeScanData::modificationEnded(const Ovr::DataStructures::ScanDataModification& /*what*/) {
    log_.push_back("scope closed");
}

}  // namespace Vardex::Testing
