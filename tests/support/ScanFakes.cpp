// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "support/ScanFakes.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace Vardex::Testing {

namespace {

class FakeLock final : public Ovr::IPointDataWriteLock {
  public:
    FakeLock(CallLog& log, int number, bool valid)
        : name_("lock " + std::to_string(number)),
          span_(log, name_, name_ + " released"),
          valid_(valid) {}

    bool isValid() const override { return valid_; }
    const std::string& name() const { return name_; }

  private:
    std::string name_;
    LoggedSpan span_;
    bool valid_;
};

/// @return " with lock 2" for the second lock
std::string with(const Ovr::IPointDataWriteLock& lock) {
    const auto* own = dynamic_cast<const FakeLock*>(&lock);
    return " with " + (own != nullptr ? own->name() : std::string("a foreign lock"));
}

class FakeAccess final : public Ovr::IPointDataExclusiveAccess {
  public:
    FakeAccess(CallLog& log, const Ovr::IPointDataWriteLock& lock)
        : span_(log, "access" + with(lock), "access released") {}

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
    const Ovr::IPointDataWriteLock& lock) {
    if (refuseAccess) {
        log_.push_back("access refused");
        return nullptr;
    }
    return std::make_unique<FakeAccess>(log_, lock);
}

std::unique_ptr<Ovr::DataStructures::ScanDataModificationScope>
FakeScanData::createModificationScope(const Ovr::DataStructures::ScanDataModification& what) {
    auto scope = std::make_unique<Ovr::DataStructures::ScanDataModificationScope>(*this, what);
    scope_ = scope.get();
    return scope;
}

Ovr::ErrorPtr FakeScanData::loadPoints(std::uint64_t count, Ovr::StatisticsReport& statistics,
                                       Ovr::DataStructures::ScanDataModificationScope& scope,
                                       const Ovr::IPointDataWriteLock& lock) {
    const bool all = count == std::numeric_limits<std::uint64_t>::max();
    log_.push_back((all ? "load all" : "load some") + with(lock));
    EXPECT_EQ(&scope, scope_) << "loads in another scope";
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
