// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <memory>

#include "Hx/ModuleInitInfo.h"

#include "module/ModuleVersion.h"
#include "module/frame/VardexExport.h"

// What the host calls by name after the library's entry point, in an order of its own.

namespace {

constexpr int kAccepted = 1;
constexpr int kRefused = -1;

}  // namespace

extern "C" {

/// The module's version, through four pointers that are not null.
VARDEX_EXPORT void HxGetVersion(int* major, int* minor, int* patch, int* build) {
    *major = Vardex::kVersionMajor;
    *minor = Vardex::kVersionMinor;
    *patch = Vardex::kVersionPatch;
    *build = Vardex::kVersionBuild;
}

/// Tells the host the module's name. Requires: @p info is not empty. @return 1
VARDEX_EXPORT int HxInit(std::shared_ptr<Hx::ModuleInitInfo> info) {
    info->moduleName = L"VardexScandata";
    return kAccepted;
}

/// Nothing is left to set up; the module only checks that there is an application to work for.
/// @return 1; -1 when @p application is empty
VARDEX_EXPORT int QuorvaPostInit(std::shared_ptr<void> application) {
    return application != nullptr ? kAccepted : kRefused;
}

}  // extern "C"
