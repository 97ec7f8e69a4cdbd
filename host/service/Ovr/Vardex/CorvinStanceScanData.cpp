// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Vardex/CorvinStanceScanData.h"

#include <memory>

namespace Ovr::VardexLib {

CorvinStanceScanData::CorvinStanceScanData(Interfaces::IScanIntegration& integration)
    : CorvinScanData(integration, std::make_shared<CorvinStanceMetaData>()) {}

CorvinStanceScanData::~CorvinStanceScanData() = default;

std::string CorvinStanceScanData::getStaticPointSetClassIdentifier() {
    return "Vardex.CorvinStanceScan";
}

std::string CorvinStanceScanData::getPointSetClassIdentifier() const {
    return getStaticPointSetClassIdentifier();
}

}  // namespace Ovr::VardexLib
