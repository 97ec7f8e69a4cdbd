// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "HostExport.h"

namespace Platform {

/// Why the platform calls a library's entry point.
enum class EntryReason : int {
    ProcessDetach = 0,
    ProcessAttach = 1,
    ThreadAttach = 2,
    ThreadDetach = 3
};

/// Name and type of the entry point that a library exports: instance handle and reason; 1 for
/// success, 0 for failure.
inline constexpr const char* kLibraryEntryName = "VardexLibraryEntry";
using LibraryEntry = int (*)(void* instance, int reason);

/// A library that is open. Opening it for the first time maps it and calls its entry point with
/// ProcessAttach. When that fails, the entry point is called with ProcessDetach at once and the
/// library is closed. Destroying its last LoadedLibrary calls ProcessDetach and unmaps it. The
/// entry point does not throw. Threads: one loader lock orders all loads and unloads.
class HOST_EXPORT LoadedLibrary {
  public:
    /// @param error  filled with one line when the result is empty
    [[nodiscard]] static std::unique_ptr<LoadedLibrary> open(const std::filesystem::path& path,
                                                             std::string& error);
    /// The file of the library with an entry point that the program is linked with. To open it is
    /// to attach the copy that the program uses.
    /// @return empty without such a library
    static std::filesystem::path linked();
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;
    ~LoadedLibrary();

    /// @return null when the library does not export the name
    void* find(const char* name) const;
    template <typename Function>
    Function* function(const char* name) const {
        return reinterpret_cast<Function*>(find(name));
    }

    /// Whether a library of that path is mapped into the process now.
    static bool isMapped(const std::filesystem::path& path);

  private:
    LoadedLibrary() = default;

    void* handle_ = nullptr;
    LibraryEntry entry_ = nullptr;
};

}  // namespace Platform
