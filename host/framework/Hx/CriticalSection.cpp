// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/CriticalSection.h"

namespace Hx {

void CriticalSection::lock() {
    mutex_.lock();
    ++depth_;
}

void CriticalSection::unlock() {
    --depth_;
    mutex_.unlock();
}

}  // namespace Hx
