// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/StateContext.h"

namespace Hx {

Tq_1_1::SmartPtr<Object> StateContext::getFirstSelectionObject() const {
    return selection_.empty() ? Tq_1_1::SmartPtr<Object>() : selection_.front();
}

}  // namespace Hx
