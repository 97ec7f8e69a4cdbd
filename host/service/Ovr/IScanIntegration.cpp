// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/IScanIntegration.h"

namespace Ovr::Interfaces {

IScanIntegration::~IScanIntegration() = default;

}  // namespace Ovr::Interfaces
