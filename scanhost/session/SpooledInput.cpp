// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/SpooledInput.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <vector>

#include <fmt/format.h>

#include "report/Failure.h"
#include "session/Interrupt.h"

namespace ScanHost {

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 20;  // [bytes]

Failure failed(const char* what) {
    return Failure(fmt::format("stdin: {} ({})", what, std::generic_category().message(errno)));
}

bool writeAll(int descriptor, const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t written = ::write(descriptor, bytes, count);
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes += written > 0 ? written : 0;
        count -= static_cast<std::size_t>(written > 0 ? written : 0);
    }
    return true;
}

}  // namespace

SpooledInput::SpooledInput() {
    std::string name = (std::filesystem::temp_directory_path() / "scanhost-XXXXXX").string();
    descriptor_ = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor_ < 0) {
        throw failed("no temporary file for it");
    }
    ::unlink(name.c_str());
    path_ = fmt::format("/proc/self/fd/{}", descriptor_);
    try {
        copy();
    } catch (...) {
        ::close(descriptor_);
        throw;
    }
}

SpooledInput::~SpooledInput() {
    ::close(descriptor_);
}

std::unique_ptr<SpooledInput> spoolInput(ScanOptions& options, Console& console) {
    std::unique_ptr<SpooledInput> spooled;
    const auto spool = [&](auto& name) {
        if (name != SpooledInput::kSign) {
            return;
        }
        if (spooled) {
            throw Failure("stdin: named twice, expected once", ExitCode::WrongUsage);
        }
        spooled = std::make_unique<SpooledInput>();
        console.setAlias(spooled->path(), SpooledInput::kName);
        name = spooled->path();
    };
    for (std::string& file : options.files) {
        spool(file);
    }
    if (options.trajectory) {
        spool(*options.trajectory);
    }
    return spooled;
}

void SpooledInput::copy() {
    std::vector<char> piece(kPiece);
    for (;;) {
        const ssize_t got = ::read(STDIN_FILENO, piece.data(), piece.size());
        Interrupt::check();
        if (got < 0 && errno != EINTR) {
            throw failed("cannot be read");
        }
        if (got == 0) {
            return;
        }
        if (got > 0 && !writeAll(descriptor_, piece.data(), static_cast<std::size_t>(got))) {
            throw failed("cannot be kept in a temporary file");
        }
    }
}

}  // namespace ScanHost
