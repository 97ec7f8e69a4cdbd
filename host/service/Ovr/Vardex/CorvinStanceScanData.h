// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "HostExport.h"
#include "Ovr/Vardex/CorvinScanData.h"

namespace Ovr::VardexLib {

/// The data of a stationary scan: a grid of points and a CorvinStanceMetaData.
class HOST_EXPORT CorvinStanceScanData final : public CorvinScanData {
  public:
    explicit CorvinStanceScanData(Interfaces::IScanIntegration& integration);
    ~CorvinStanceScanData() override;

    static std::string getStaticPointSetClassIdentifier();
    std::string getPointSetClassIdentifier() const override;
};

}  // namespace Ovr::VardexLib
