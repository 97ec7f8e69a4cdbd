// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Attribute.h"

#include <atomic>

#include "Hx/AttrContainer.h"

namespace Hx {

namespace {

std::atomic<bool> cachedAttributePending{false};

}  // namespace

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

}  // namespace Hx
