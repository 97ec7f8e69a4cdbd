// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/SmartPtr.h"

namespace Tq_1_1 {

RefCounted::~RefCounted() = default;

}  // namespace Tq_1_1
