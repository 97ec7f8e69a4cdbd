// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/VisitorCore.h"

namespace Tq_1_1 {

VisitorCore::~VisitorCore() = default;

}  // namespace Tq_1_1
