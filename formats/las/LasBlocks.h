// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "Ovr/Errors.h"
#include "Tq/Vec3d.h"
#include "kit/InputFile.h"
#include "kit/LittleEndian.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// Walks over the point records of a LAS file in blocks of about a mebibyte.
class LasBlocks {
  public:
    /// @param end    number of the record to end before; at most those of the header
    /// @param first  number of the record to begin with
    LasBlocks(InputFile& file, const LasHeader& header, std::uint64_t end,
              std::uint64_t first = 0);

    /// Reads the next block. @return empty on success; Truncated when the file has shrunk
    /// meanwhile.
    [[nodiscard]] ErrorPtr next();

    bool atEnd() const { return first_ + records_ == end_; }
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
    std::uint64_t end_;
    std::uint64_t first_;
    std::uint64_t records_ = 0;
    std::vector<char> buffer_;
};

/// Coordinates of a record in the file's frame [m].
inline Tq_1_1::Vec3d<double> lasPosition(const LasHeader& header, const char* record) {
    Tq_1_1::Vec3d<double> position;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const auto raw = loadLittle<std::int32_t>(record + 4 * axis);
        position[axis] = raw * header.scale[axis] + header.offset[axis];
    }
    return position;
}

}  // namespace Ovr::Formats
