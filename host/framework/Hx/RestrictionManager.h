// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <mutex>

#include "HostExport.h"

namespace Hx {

class CommandInterf;
class StateContext;

/// Decides which commands are refused in a state. Threads: any. Denial functions are called
/// without a lock, and possibly from several threads at once.
class HOST_EXPORT RestrictionManager {
  public:
    /// True: the command is denied in that state.
    using DenialFunction = std::function<bool(const CommandInterf*, const StateContext*)>;

    /// Keeps one function per key: a later one replaces the earlier one, and both registrations
    /// are counted. A null key or an empty function changes nothing.
    void addDenialFunction(const void* key, DenialFunction function);
    /// Drops the function of a key; nothing happens for an unknown key. An application calls this
    /// before it unloads the module that holds the function. Requires: no call of isDenied is under
    /// way, for it may still call the function.
    void removeDenialFunction(const void* key);
    /// How often a function was registered under the key; 0 for an unknown one.
    std::size_t getRegistrationCount(const void* key) const;

    /// Whether any function denies the command.
    bool isDenied(const CommandInterf* command, const StateContext* state) const;

  private:
    struct Entry {
        DenialFunction function;
        std::size_t registrations = 0;
    };

    mutable std::mutex mutex_;
    std::map<const void*, Entry> entries_;  // guarded by mutex_
};

}  // namespace Hx
