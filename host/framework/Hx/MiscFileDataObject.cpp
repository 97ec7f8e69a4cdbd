// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/MiscFileDataObject.h"

#include "Tq/HxClass.h"
#include "Tq/Module.h"

namespace Hx {

MiscFileDataObject::~MiscFileDataObject() = default;

const Tq_1_1::HxClass* MiscFileDataObject::Class() {
    static const Tq_1_1::HxClass record(L"MiscFileDataObject", FileDataObject::Class(),
                                        Tq_1_1::hostModule(), {});
    return &record;
}

const Tq_1_1::HxClass* MiscFileDataObject::getClassType() const {
    return Class();
}

}  // namespace Hx
