// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Vardex/IScanPointTimes.h"

namespace Ovr::VardexLib {

IScanPointTimes::~IScanPointTimes() = default;

}  // namespace Ovr::VardexLib
