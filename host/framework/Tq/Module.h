// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"

namespace Tq_1_1 {

class HxClass;

/// The record of a loaded module. A module keeps one, names it in its class records, initialises
/// it on load and terminates it on unload.
class HOST_EXPORT Module {
  public:
    Module();
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    ~Module();

    /// Enters the module into the host and sets up the statics of its classes.
    /// @param instanceHandle  the library's, not null
    /// @return false, and nothing has changed, when the handle is null, the record is initialised
    ///         already, or the host accepts no modules
    [[nodiscard]] bool internalInit(void* instanceHandle);
    /// Clears the statics of the module's classes and leaves the host. Does nothing when the record
    /// is not initialised. Needs no memory.
    void internalTerm();

    /// Whether the host accepts modules. It does from the start, and not while it shuts down.
    static void setAccepting(bool accepting);

  private:
    /// Calls an operation of each class record that names this module, in the order in which they
    /// were built. Needs no memory.
    void forEachClass(void (HxClass::*visit)() const) const;

    bool initialised_ = false;
};

/// The record that the host's own classes name.
HOST_EXPORT Module& hostModule();

}  // namespace Tq_1_1
