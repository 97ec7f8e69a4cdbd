// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"
#include "Hx/Object2d.h"

namespace Hx {

/// An object with a place in space.
class HOST_EXPORT Object3d : public Object2d {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

  protected:
    ~Object3d() override;
};

}  // namespace Hx
