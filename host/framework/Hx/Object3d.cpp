// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Object3d.h"

#include "Tq/HxClass.h"
#include "Tq/Module.h"

namespace Hx {

Object3d::~Object3d() = default;

const Tq_1_1::HxClass* Object3d::Class() {
    static const Tq_1_1::HxClass record(L"Object3d", Object2d::Class(), Tq_1_1::hostModule(), {});
    return &record;
}

const Tq_1_1::HxClass* Object3d::getClassType() const {
    return Class();
}

}  // namespace Hx
