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

bool syncPath(const fs::path& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        return false;
    }
    const bool synced = ::fsync(descriptor) == 0;
    const int reason = errno;
    ::close(descriptor);
    errno = reason;
    return synced;
}

}  // namespace

AtomicFile::~AtomicFile() {
    discard();
}

ErrorPtr AtomicFile::open(const fs::path& target) {
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    target_ = fs::is_symlink(target, ignored) && fs::exists(status) ? fs::canonical(target, ignored)
                                                                    : target;
    if (fs::is_directory(status)) {
        return makeError(ErrorCode::IsDirectory,
                         {target.string(), "", "a directory", "the name of a file to write"});
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return makeError(ErrorCode::WriteFailed,
                         {target.string(), "", "a device or pipe", "the name of a regular file"});
    }
    const fs::path part = partName(target_);
    const int descriptor =
        ::open(part.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
    if (descriptor < 0) {
        return failure("a file that cannot be created");
    }
    part_ = part;
    if (fs::exists(status)) {
        ::fchmod(descriptor, static_cast<mode_t>(status.permissions()));
    }
    ::close(descriptor);
    stream_.open(part_, std::ios::out | std::ios::binary | std::ios::trunc);
    return stream_ ? nullptr : failure("a file that cannot be opened");
}

ErrorPtr AtomicFile::commit() {
    stream_.close();
    if (stream_.fail() || !syncPath(part_)) {
        ErrorPtr error = failure("a write that failed");
        discard();
        return error;
    }
    if (::rename(part_.c_str(), target_.c_str()) != 0) {
        ErrorPtr error = failure("a file that cannot be put in place");
        discard();
        return error;
    }
    part_.clear();
    // The name is durable only with its directory. Some file systems cannot sync one: the file is
    // whole all the same.
    syncPath(target_.has_parent_path() ? target_.parent_path() : fs::path("."));
    return nullptr;
}

ErrorPtr AtomicFile::failure(const char* what) const {
    const std::string reason =
        errno == 0 ? "" : fmt::format(" ({})", std::generic_category().message(errno));
    return makeError(ErrorCode::WriteFailed, {target_.string(), "", what + reason, ""});
}

void AtomicFile::discard() {
    if (part_.empty()) {
        return;
    }
    stream_.close();
    std::error_code ignored;
    fs::remove(part_, ignored);
    part_.clear();
}

}  // namespace Ovr::Formats
