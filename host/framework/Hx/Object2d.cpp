// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Object2d.h"

#include "Tq/HxClass.h"
#include "Tq/Module.h"

namespace Hx {

Object2d::~Object2d() = default;

const Tq_1_1::HxClass* Object2d::Class() {
    static const Tq_1_1::HxClass record(L"Object2d", Object::Class(), Tq_1_1::hostModule(), {});
    return &record;
}

const Tq_1_1::HxClass* Object2d::getClassType() const {
    return Class();
}

}  // namespace Hx
