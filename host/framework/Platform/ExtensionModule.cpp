// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Platform/ExtensionModule.h"

#include <atomic>

namespace {

std::atomic<bool> frameworkRunning{true};
std::atomic<int> moduleCount{0};

}  // namespace

int AfxInitExtensionModule(AFX_EXTENSION_MODULE& record, void* instance) {
    if (!frameworkRunning || instance == nullptr || record.initialised != 0) {
        return 0;
    }
    record.initialised = 1;
    record.module = instance;
    ++moduleCount;
    return 1;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& record, bool /*all*/) {
    if (record.initialised != 0) {
        record = {};
        --moduleCount;
    }
}

namespace Platform {

void setGuiFrameworkRunning(bool running) {
    frameworkRunning = running;
}

int extensionModuleCount() {
    return moduleCount;
}

}  // namespace Platform
