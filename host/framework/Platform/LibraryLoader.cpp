// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Platform/LibraryLoader.h"

#include <dlfcn.h>

#include <map>
#include <mutex>
#include <system_error>

namespace Platform {

namespace {

// Handles of the open libraries with their number of users. A library that is opened again is
// neither attached nor detached a second time.
struct Loader {
    std::recursive_mutex mutex;  // re-entrant: a library's load step may open another library
    std::map<void*, int> users;  // guarded by mutex
};

Loader& loader() {
    static Loader instance;
    return instance;
}

std::string lastLoaderError() {
    const char* text = dlerror();
    return text == nullptr ? "unknown error" : text;
}

// Attaches a library; on failure the platform detaches at once.
bool attach(void* handle, LibraryEntry entry) {
    if (entry(handle, static_cast<int>(EntryReason::ProcessAttach)) != 0) {
        return true;
    }
    entry(handle, static_cast<int>(EntryReason::ProcessDetach));
    return false;
}

std::filesystem::path absolutePath(const std::filesystem::path& path) {
    // A bare name would be looked for in the system's library folders.
    std::error_code error;
    std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute;
}

}  // namespace

std::unique_ptr<LoadedLibrary> LoadedLibrary::open(const std::filesystem::path& path,
                                                   std::string& error) {
    const std::lock_guard lock(loader().mutex);
    // Made first: after the library is attached nothing may fail.
    std::unique_ptr<LoadedLibrary> library(new LoadedLibrary);
    const auto close = [](void* handle) { dlclose(handle); };
    std::unique_ptr<void, decltype(close)> handle(
        dlopen(absolutePath(path).c_str(), RTLD_NOW | RTLD_LOCAL), close);
    if (!handle) {
        error = lastLoaderError();
        return nullptr;
    }
    const auto entry = reinterpret_cast<LibraryEntry>(dlsym(handle.get(), kLibraryEntryName));
    if (entry == nullptr) {
        error = path.string() + ": exports no " + kLibraryEntryName;
        return nullptr;
    }
    int& users = loader().users[handle.get()];
    if (users == 0 && !attach(handle.get(), entry)) {
        loader().users.erase(handle.get());
        error = path.string() + ": the library refused to load";
        return nullptr;
    }
    ++users;
    library->handle_ = handle.release();
    library->entry_ = entry;
    return library;
}

LoadedLibrary::~LoadedLibrary() {
    if (handle_ == nullptr) {
        return;
    }
    const std::lock_guard lock(loader().mutex);
    if (--loader().users[handle_] == 0) {
        loader().users.erase(handle_);
        entry_(handle_, static_cast<int>(EntryReason::ProcessDetach));
    }
    dlclose(handle_);
}

std::filesystem::path LoadedLibrary::linked() {
    Dl_info library{};
    void* const entry = dlsym(RTLD_DEFAULT, kLibraryEntryName);
    return entry != nullptr && dladdr(entry, &library) != 0 ? library.dli_fname : "";
}

void* LoadedLibrary::find(const char* name) const {
    return dlsym(handle_, name);
}

bool LoadedLibrary::isMapped(const std::filesystem::path& path) {
    const std::lock_guard lock(loader().mutex);  // dlclose may unmap the library
    void* handle = dlopen(absolutePath(path).c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (handle == nullptr) {
        return false;
    }
    dlclose(handle);
    return true;
}

}  // namespace Platform
