// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "module/ModuleLifecycle.h"

#include "Platform/ExtensionModule.h"

#include "module/Registration.h"
#include "module/frame/ModuleRecord.h"
#include "module/frame/UnloadStep.h"

namespace Vardex {

namespace {

AFX_EXTENSION_MODULE extensionModule{};

}  // namespace

bool load(void* instance) {
    prepareRegistration();
    if (!theModule().internalInit(instance)) {
        return false;
    }
    extensionModule = {};
    return AfxInitExtensionModule(extensionModule, instance) != 0 && registerAll();
}

void unload() noexcept {
    unregisterAll();
    unloadStep([] { AfxTermExtensionModule(extensionModule, false); });
    unloadStep([] { theModule().internalTerm(); });
}

}  // namespace Vardex
