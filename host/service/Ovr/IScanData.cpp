// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/IScanData.h"

namespace Ovr::Interfaces {

IScanData::~IScanData() = default;

}  // namespace Ovr::Interfaces
