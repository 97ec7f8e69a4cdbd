// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"
#include "Hx/FileDataObject.h"

namespace Hx {

/// An object that stands for a file whose content is no point set itself.
class HOST_EXPORT MiscFileDataObject : public FileDataObject {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

  protected:
    ~MiscFileDataObject() override;
};

}  // namespace Hx
