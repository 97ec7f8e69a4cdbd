// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "Hx/PointSetIntegration.h"

#include "module/frame/VardexErrorConverter.h"
#include "pointset/CorvinPointSet.h"
#include "support/ScanFakes.h"

namespace Vardex::Testing {

/// The smallest concrete point set: fake locks, fake scan data, and a log of conversions and of
/// refreshes of the cached metadata.
class LoggingPointSet final : public CorvinPointSet {
  public:
    explicit LoggingPointSet(CallLog& log)
        : CorvinPointSet(L"logging", std::make_shared<Hx::PointSetIntegration>(*this)),
          locks(std::make_shared<FakeLocks>(log)),
          log_(log) {
        auto owned = std::make_unique<FakeScanData>(log);
        scanData = owned.get();
        getIntegration()->setScanData(std::move(owned));
        getIntegration()->setPointDataLocks(locks);
    }

    void updateCachedMetaData() override { log_.push_back("refresh"); }

    std::unique_ptr<Hx::SpecificErrorConverterBase> createErrorConverter() const override {
        return std::make_unique<LoggedConverter>(log_);
    }

    std::shared_ptr<Hx::PointSet> createNewPointSet(int /*size1*/, int /*size2*/,
                                                    const Tq_1_1::String& /*name*/) const override {
        return nullptr;
    }
    double getHorizontalRange() const override { return 0.0; }
    double getMinHorizontalAngle() const override { return 0.0; }
    double getMaxHorizontalAngle() const override { return 0.0; }
    double getMaxVerticalAngle() const override { return 0.0; }

    std::shared_ptr<FakeLocks> locks;
    FakeScanData* scanData;

  private:
    class LoggedConverter final : public Hx::SpecificErrorConverterBase {
      public:
        explicit LoggedConverter(CallLog& log) : span_(log, "converter", "converter released") {}
        Hx::IOMessages::IOResult convertError(
            const std::shared_ptr<const Ovr::ErrorHandling::ErrorBase>& error) const override {
            return VardexErrorConverter().convertError(error);
        }

      private:
        LoggedSpan span_;
    };

    CallLog& log_;
};

}  // namespace Vardex::Testing
