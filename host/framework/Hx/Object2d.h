// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"
#include "Hx/Object.h"

namespace Hx {

/// An object with a place in a plane view.
class HOST_EXPORT Object2d : public Object {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

  protected:
    ~Object2d() override;
};

}  // namespace Hx
