// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/Module.h"

#include <atomic>

#include "Tq/HxClass.h"

namespace Tq_1_1 {

namespace {

std::atomic<bool> accepting{true};

}  // namespace

Module::Module() {
    // The list of classes is asked for again by the destructor: it must be the older object.
    HxClass::all();
}

Module::~Module() {
    internalTerm();
}

bool Module::internalInit(void* instanceHandle) {
    if (instanceHandle == nullptr || initialised_ || !accepting) {
        return false;
    }
    initialised_ = true;
    for (const HxClass* type : classes()) {
        type->initClassStatics();
    }
    return true;
}

void Module::internalTerm() {
    if (!initialised_) {
        return;
    }
    for (const HxClass* type : classes()) {
        type->clearClassStatics();
    }
    initialised_ = false;
}

std::vector<const HxClass*> Module::classes() const {
    std::vector<const HxClass*> own = HxClass::all();
    std::erase_if(own, [this](const HxClass* type) { return &type->getModule() != this; });
    return own;
}

void Module::setAccepting(bool value) {
    accepting = value;
}

Module& hostModule() {
    static Module instance;
    return instance;
}

}  // namespace Tq_1_1
