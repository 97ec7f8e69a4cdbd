// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Models.h"

#include "Hx/PointSetFactory.h"

namespace Hx {

Models::Models() : factory_(std::make_shared<PointSetFactory>()) {}

Models& Models::the() {
    static Models instance;
    return instance;
}

Tq_1_1::SmartPtr<ModelContext> Models::context(unsigned long long identifier) {
    const std::lock_guard lock(mutex_);
    Tq_1_1::SmartPtr<ModelContext>& context = contexts_[identifier];
    if (!context) {
        context = Tq_1_1::SmartPtr<ModelContext>(new ModelContext);
    }
    return context;
}

}  // namespace Hx
