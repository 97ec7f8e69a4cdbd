// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Models.h"

#include <utility>

#include "Hx/PointSetFactory.h"

namespace Hx {

Application::~Application() = default;

void Application::setRestrictionManager(std::shared_ptr<RestrictionManager> manager) {
    restrictions_ = std::move(manager);
}

Models::Models() : factory_(std::make_shared<PointSetFactory>()) {}

Models& Models::the() {
    static Models instance;
    return instance;
}

void Models::setPointSetFactory(std::shared_ptr<PointSetFactory> factory) {
    factory_ = std::move(factory);
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
