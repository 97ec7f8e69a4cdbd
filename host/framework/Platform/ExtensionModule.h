// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"

/// Record of a module of the GUI framework. Cleared to zero by the module before use.
struct AFX_EXTENSION_MODULE {
    int initialised;
    void* module;
};

/// Stand-in of the GUI framework's start of an extension module.
/// @return 0 when the framework is not running, the handle is null or the record is in use
[[nodiscard]] HOST_EXPORT int AfxInitExtensionModule(AFX_EXTENSION_MODULE& record, void* instance);
/// Ends what AfxInitExtensionModule began; changes nothing on a record that is not in use.
HOST_EXPORT void AfxTermExtensionModule(AFX_EXTENSION_MODULE& record, bool all);

namespace Platform {

/// The GUI framework runs from the start; an application without windows may stop it.
HOST_EXPORT void setGuiFrameworkRunning(bool running);
/// Number of extension modules that are initialised now.
HOST_EXPORT int extensionModuleCount();

}  // namespace Platform
