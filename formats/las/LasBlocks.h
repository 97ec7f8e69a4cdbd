// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "Ovr/Errors.h"
#include "Tq/Vec3d.h"
#include "kit/InputFile.h"
#include "kit/LittleEndian.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// Walks over the point records of a LAS file in blocks of about a mebibyte, as they are when they
/// are not compressed.
class LasBlocks {
  public:
    LasBlocks(const LasBlocks&) = delete;
    LasBlocks& operator=(const LasBlocks&) = delete;
    virtual ~LasBlocks();

    /// Reads the next block. @return empty on success; Truncated when the file has shrunk
    /// meanwhile; of a compressed file whatever is wrong with its points.
    [[nodiscard]] virtual ErrorPtr next() = 0;

    /// An error at a record of the block.
    /// @param field  place of what is wrong in the record [bytes]
    [[nodiscard]] virtual ErrorPtr fault(Interfaces::ErrorCode code, std::uint64_t i,
                                         std::size_t field, std::string found,
                                         std::string expected) const = 0;

    bool atEnd() const { return first_ + records_ == end_; }
    /// Number of the block's first record.
    std::uint64_t first() const { return first_; }
    /// Number of records in the block; 0 before the first next().
    std::uint64_t records() const { return records_; }
    /// The first byte of a record of the block.
    const char* record(std::uint64_t i) const { return data_ + i * length_; }
    /// 0 to 1: how much has been read.
    double fraction() const;

  protected:
    /// @param end  number of the record to end before
    LasBlocks(std::uint64_t length, std::uint64_t end) : length_(length), end_(end) {}

    std::uint64_t length() const { return length_; }
    std::uint64_t end() const { return end_; }
    /// Goes on to the next records. @param data  kept until the next call
    void show(const char* data, std::uint64_t records) {
        first_ += records_;
        data_ = data;
        records_ = records;
    }

  private:
    std::uint64_t length_;  ///< of a record [bytes]
    std::uint64_t end_;
    std::uint64_t first_ = 0;
    std::uint64_t records_ = 0;
    const char* data_ = nullptr;
};

/// @param file, header  kept by reference
/// @param count         records to walk over, from the first on; at most those of the header
std::unique_ptr<LasBlocks> openLasBlocks(InputFile& file, const LasHeader& header,
                                         std::uint64_t count);

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
