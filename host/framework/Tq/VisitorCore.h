// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"

namespace Tq_1_1 {

/// Root of what a visitor can come to.
class HOST_EXPORT VisitorCore {
  public:
    virtual ~VisitorCore();
};

}  // namespace Tq_1_1
