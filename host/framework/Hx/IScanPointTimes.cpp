// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/IScanPointTimes.h"

namespace Hx {

IScanPointTimes::~IScanPointTimes() = default;

decltype(IScanPointTimes::Operations::hasScanPointTimes)
    IScanPointTimes::Operations::hasScanPointTimes;

}  // namespace Hx
