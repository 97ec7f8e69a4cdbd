// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/InputFile.h"

#include <fmt/format.h>

#include <system_error>
#include <utility>

#include "Ovr/FormatRegistry.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
namespace fs = std::filesystem;

ErrorPtr InputFile::open(const fs::path& file) {
    if (ErrorPtr error = checkReadable(file)) {
        return error;
    }
    name_ = file.string();
    // Blocks are large: a buffer in the stream would only copy every byte once more.
    stream_.rdbuf()->pubsetbuf(nullptr, 0);
    stream_.open(file, std::ios::in | std::ios::binary);
    std::error_code failure;
    size_ = fs::file_size(file, failure);
    if (!failure) {
        changed_ = fs::last_write_time(file, failure);
    }
    if (!stream_ || failure) {
        return makeError(ErrorCode::CannotRead, {name_, "", "a file that cannot be opened", ""});
    }
    return nullptr;
}

std::size_t InputFile::readAt(std::uint64_t offset, std::span<char> out) {
    stream_.clear();
    if (offset != position_) {
        stream_.seekg(static_cast<std::streamoff>(offset));
    }
    stream_.read(out.data(), static_cast<std::streamsize>(out.size()));
    const auto got = static_cast<std::size_t>(stream_.gcount());
    position_ = offset + got;
    return got;
}

ErrorPtr InputFile::fault(ErrorCode code, std::uint64_t offset, std::string found,
                          std::string expected) const {
    return makeError(
        code, {name_, fmt::format("byte {}", offset), std::move(found), std::move(expected)});
}

}  // namespace Ovr::Formats
