// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Platform/LibraryLoader.h"

#include "module/ModuleLifecycle.h"
#include "module/frame/VardexExport.h"

namespace {

constexpr int kSuccess = 1;
constexpr int kFailure = 0;

// The platform knows numbers only: a load in which memory runs out or the host throws has failed.
int attach(void* instance) {
    try {
        return Vardex::load(instance) ? kSuccess : kFailure;
    } catch (...) {
        return kFailure;
    }
}

}  // namespace

/// The library's entry point. The loader calls it right after opening and right before closing, so
/// it runs after all static initialisers and before all static destructors.
/// @param reason  a Platform::EntryReason; threads that start and end are ignored
/// @return 1 for success, 0 when the module cannot be loaded
extern "C" VARDEX_EXPORT int VardexLibraryEntry(void* instance, int reason) noexcept {
    switch (static_cast<Platform::EntryReason>(reason)) {
        case Platform::EntryReason::ProcessAttach:
            return attach(instance);
        case Platform::EntryReason::ProcessDetach:
            Vardex::unload();
            return kSuccess;
        default:
            return kSuccess;
    }
}

#if defined(_WIN32)
extern "C" int __stdcall DllMain(void* instance, unsigned long reason, void* /*reserved*/) {
    return VardexLibraryEntry(instance, static_cast<int>(reason));
}
#endif
