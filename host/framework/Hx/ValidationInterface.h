// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"

namespace Hx {

/// Says that a class can tell whether its objects are complete.
class HOST_EXPORT ValidationInterface {
  public:
    virtual ~ValidationInterface();

    virtual bool isValid() const = 0;
};

}  // namespace Hx
