// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/ModelContext.h"

namespace Hx {

ModelContext::~ModelContext() = default;

AllocMain::AllocMain(bool /*exclusive*/, const Tq_1_1::SmartPtr<ModelContext>& context)
    : context_(context) {
    if (context_) {
        context_->mutex_.lock();
        ++context_->taken_;
    }
}

AllocMain::~AllocMain() {
    release();
}

void AllocMain::release() {
    if (context_) {
        ++context_->released_;
        context_->mutex_.unlock();
        context_ = nullptr;
    }
}

}  // namespace Hx
