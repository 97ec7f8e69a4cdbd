// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "Platform/LibraryLoader.h"

namespace Vardex::Testing {

/// The built module.
std::filesystem::path moduleFile();

/// What a host does with a loaded module: imports a mobile scan and a stance, loads the times of
/// the one and sorts by them, makes a data object whose filter the host takes back afterwards.
void useModule(const Platform::LoadedLibrary& library);

/// What the process holds of everything that a module might leave in it.
struct Holdings {
    std::ptrdiff_t allocations = 0;  ///< by `new`
    std::size_t mallocBytes = 0;     ///< in use
    std::size_t threads = 0;         ///< of the process
    std::size_t descriptors = 0;     ///< open
    std::size_t mappings = 0;        ///< of the address space
    std::size_t residentBytes = 0;   ///< in memory

    static Holdings now();
};

/// What the module has registered, as text: one entry for each list of the host.
std::vector<std::string> registered();

}  // namespace Vardex::Testing
