// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/ValidationInterface.h"

namespace Hx {

ValidationInterface::~ValidationInterface() = default;

}  // namespace Hx
