// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "module/ModuleLifecycle.h"

#include "Platform/ExtensionModule.h"

#include "module/Registration.h"
#include "module/frame/ModuleRecord.h"

namespace Vardex {

namespace {

AFX_EXTENSION_MODULE extensionModule{};

}  // namespace

bool load(void* instance) {
    if (!theModule().internalInit(instance)) {
        return false;
    }
    extensionModule = {};
    return AfxInitExtensionModule(extensionModule, instance) != 0 && registerAll();
}

void unload() {
    unregisterAll();
    AfxTermExtensionModule(extensionModule, false);
    theModule().internalTerm();
}

}  // namespace Vardex
