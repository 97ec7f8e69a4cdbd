// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>

#include "Ovr/Errors.h"

namespace Ovr::Formats {

/// A regular file that is read in blocks. Size and time are those at the time of opening.
class InputFile {
  public:
    /// @return empty on success. Requires: called once.
    [[nodiscard]] ErrorPtr open(const std::filesystem::path& file);

    /// [bytes]
    std::uint64_t size() const { return size_; }
    /// When the file's content was last changed before it was opened.
    std::filesystem::file_time_type changed() const { return changed_; }
    /// The file as the user wrote it, for messages.
    const std::string& name() const { return name_; }

    /// Fills @p out from @p offset on.
    /// @return number of bytes read: fewer than asked for at the file's end or when reading fails
    std::size_t readAt(std::uint64_t offset, std::span<char> out);

    /// A fault at a byte of this file.
    [[nodiscard]] ErrorPtr fault(Interfaces::ErrorCode code, std::uint64_t offset,
                                 std::string found, std::string expected) const;

  private:
    std::ifstream stream_;
    std::uint64_t size_ = 0;
    std::filesystem::file_time_type changed_;
    std::uint64_t position_ = 0;
    std::string name_;
};

}  // namespace Ovr::Formats
