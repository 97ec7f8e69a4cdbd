// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>

#include "Tq/String.h"

namespace Hx {

/// What the host hands to a module's HxInit; the module fills in its name.
struct ModuleInitInfo {
    std::uint64_t hostReserved = 0;  ///< for the host's own use; modules do not touch it
    Tq_1_1::String moduleName;
};

/// Entry points that a module exports by these names, unmangled.
using HxInitFunction = int(std::shared_ptr<ModuleInitInfo> info);
using HxGetVersionFunction = void(int* major, int* minor, int* patch, int* build);
/// The argument stands for the running application.
using QuorvaPostInitFunction = int(std::shared_ptr<void> application);

}  // namespace Hx
