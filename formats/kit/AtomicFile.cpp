// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/AtomicFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <string>
#include <system_error>

namespace Ovr::Formats {

using Interfaces::ErrorCode;
namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFileMode = 0666;  // cut down by the user's mask

fs::path partName(const fs::path& target) {
    static std::atomic<std::uint32_t> counter{0};
    fs::path part = target;
    part += fmt::format(".part-{}-{}", ::getpid(), counter++);
    return part;
}

void syncFolder(const fs::path& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

}  // namespace

AtomicFile::~AtomicFile() {
    discard();
}

ErrorPtr AtomicFile::open(const fs::path& target, Existing existing) {
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    target_ = fs::is_symlink(target, ignored) && fs::exists(status) ? fs::canonical(target, ignored)
                                                                    : target;
    existing_ = existing;
    if (fs::is_directory(status)) {
        return makeError(ErrorCode::IsDirectory,
                         {target.string(), "", "a directory", "the name of a file to write"});
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return makeError(ErrorCode::WriteFailed,
                         {target.string(), "", "a device or pipe", "the name of a regular file"});
    }
    if (fs::exists(status) && existing == Existing::Keep) {
        return failure("", EEXIST);
    }
    const fs::path part = partName(target_);
    const int descriptor =
        ::open(part.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
    if (descriptor < 0) {
        return failure("a file that cannot be created", errno);
    }
    part_ = part;
    if (fs::exists(status)) {
        ::fchmod(descriptor, static_cast<mode_t>(status.permissions()));
    }
    stream_.attach(descriptor);
    return nullptr;
}

ErrorPtr AtomicFile::failure() const {
    const int reason = stream_.firstFailure();
    return reason == 0 ? nullptr : failure("a write that failed", reason);
}

ErrorPtr AtomicFile::commit() {
    if (const int reason = stream_.finish(); reason != 0) {
        return giveUp(failure("a write that failed", reason));
    }
    if (const int reason = putInPlace(); reason != 0) {
        return giveUp(failure("a file that cannot be put in place", reason));
    }
    part_.clear();
    // The name is durable only with its directory. Some file systems cannot sync one: the file is
    // whole all the same.
    syncFolder(target_.has_parent_path() ? target_.parent_path() : fs::path("."));
    return nullptr;
}

/// @return 0, or the number (errno) of the failure
int AtomicFile::putInPlace() {
    if (existing_ == Existing::Replace) {
        return ::rename(part_.c_str(), target_.c_str()) == 0 ? 0 : errno;
    }
    if (::renameat2(AT_FDCWD, part_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    // Some file systems cannot rename in this way. A second name is refused where the first exists.
    if (errno != EINVAL || ::link(part_.c_str(), target_.c_str()) != 0) {
        return errno;
    }
    return ::unlink(part_.c_str()) == 0 ? 0 : errno;
}

ErrorPtr AtomicFile::failure(const std::string& what, int reason) const {
    if (reason == EEXIST) {
        return makeError(ErrorCode::WriteFailed,
                         {target_.string(), "", "a file of that name", "a new one"});
    }
    return makeError(ErrorCode::WriteFailed,
                     {target_.string(), "",
                      fmt::format("{} ({})", what, std::generic_category().message(reason)), ""});
}

ErrorPtr AtomicFile::giveUp(ErrorPtr error) {
    discard();
    return error;
}

void AtomicFile::discard() {
    if (part_.empty()) {
        return;
    }
    std::error_code ignored;
    fs::remove(part_, ignored);
    part_.clear();
}

}  // namespace Ovr::Formats
