// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/PointContainer.h"

namespace Hx {

PointContainerBase::~PointContainerBase() = default;
PointContainer::~PointContainer() = default;
PointDataInterf::~PointDataInterf() = default;

const Tq_1_1::HxClass* PointContainerBase::Class() {
    static const Tq_1_1::HxClass record(L"PointContainerBase", nullptr, Tq_1_1::hostModule(), {});
    return &record;
}

const Tq_1_1::HxClass* PointContainer::Class() {
    static const Tq_1_1::HxClass record(L"PointContainer", PointContainerBase::Class(),
                                        Tq_1_1::hostModule(), {});
    return &record;
}

}  // namespace Hx
