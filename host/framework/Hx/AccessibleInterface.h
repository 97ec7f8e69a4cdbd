// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"

namespace Hx {

/// Says that a class stands for data elsewhere.
class HOST_EXPORT AccessibleInterface {
  public:
    virtual ~AccessibleInterface();

    /// Whether the data can be reached now.
    virtual bool isAccessible() const = 0;
};

}  // namespace Hx
