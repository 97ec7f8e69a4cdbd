// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/Module.h"

#include <atomic>
#include <cstddef>

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
    forEachClass(&HxClass::initClassStatics);
    return true;
}

void Module::internalTerm() {
    if (!initialised_) {
        return;
    }
    forEachClass(&HxClass::clearClassStatics);
    initialised_ = false;
}

void Module::forEachClass(void (HxClass::*visit)() const) const {
    std::size_t from = 0;
    while (const HxClass* type = HxClass::nextOf(*this, from)) {
        (type->*visit)();
    }
}

void Module::setAccepting(bool value) {
    accepting = value;
}

Module& hostModule() {
    static Module instance;
    return instance;
}

}  // namespace Tq_1_1
