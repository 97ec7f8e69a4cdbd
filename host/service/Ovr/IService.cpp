// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/IService.h"

namespace Ovr::Interfaces {

IService::~IService() = default;

}  // namespace Ovr::Interfaces
