// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/AccessibleInterface.h"

namespace Hx {

AccessibleInterface::~AccessibleInterface() = default;

}  // namespace Hx
