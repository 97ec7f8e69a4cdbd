// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Attribute.h"

#include <atomic>

#include "Hx/AttrContainer.h"

namespace Hx {

namespace {

std::atomic<bool> cachedAttributePending{false};

}  // namespace

const Tq_1_1::HxClass* Attribute::Class() {
    static const Tq_1_1::HxClass record(L"Attribute", Observer::Class(), Tq_1_1::hostModule(), {});
    return &record;
}

const Tq_1_1::HxClass* Attribute::getClassType() const {
    return Class();
}

void Attribute::setValue(AttrValue value, AttrContainer* owner) {
    value_ = std::move(value);
    owner_ = owner;
    if (owner != nullptr) {
        owner->notify(Tq_1_1::SmartPtr<Observer>(owner), Tq_1_1::SmartPtr<Observer>(this));
    }
}

bool Attribute::isCachedAttributePending() {
    return cachedAttributePending;
}

void Attribute::setCachedAttributePending(bool pending) {
    cachedAttributePending = pending;
}

const Tq_1_1::HxClass* CachedAttributeInfo::Class() {
    static const Tq_1_1::HxClass record(L"CachedAttributeInfo", NotifyInfo::Class(),
                                        Tq_1_1::hostModule(), {});
    return &record;
}

const Tq_1_1::HxClass* CachedAttributeInfo::getClassType() const {
    return Class();
}

}  // namespace Hx
