// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "module/frame/ModuleRecord.h"

namespace Vardex {

Tq_1_1::Module& theModule() {
    static Tq_1_1::Module record;
    return record;
}

}  // namespace Vardex
