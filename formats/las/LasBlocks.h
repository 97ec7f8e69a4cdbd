// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Ovr/Errors.h"
#include "kit/InputFile.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// Walks over the point records of a LAS file in blocks of about a mebibyte.
class LasBlocks {
  public:
    /// @param count  records to walk over, from the first on; at most those of the header
    LasBlocks(InputFile& file, const LasHeader& header, std::uint64_t count);

    /// Reads the next block. @return empty on success; Truncated when the file has shrunk
    /// meanwhile.
    ErrorPtr next();

    bool atEnd() const { return first_ + records_ == count_; }
    /// Number of the block's first record.
    std::uint64_t first() const { return first_; }
    /// Number of records in the block; 0 before the first next().
    std::uint64_t records() const { return records_; }
    /// The first byte of a record of the block.
    const char* record(std::uint64_t i) const { return buffer_.data() + i * length_; }
    /// Where that byte stands in the file.
    std::uint64_t fileOffset(std::uint64_t i) const { return begin_ + (first_ + i) * length_; }
    /// 0 to 1: how much has been read.
    double fraction() const;

  private:
    InputFile& file_;
    std::uint64_t begin_;   ///< of the first record in the file [bytes]
    std::uint64_t length_;  ///< of a record [bytes]
    std::uint64_t count_;
    std::uint64_t first_ = 0;
    std::uint64_t records_ = 0;
    std::vector<char> buffer_;
};

}  // namespace Ovr::Formats
