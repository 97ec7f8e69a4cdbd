// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "Ovr/Errors.h"
#include "Ovr/Progress.h"
#include "kit/InputFile.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// The point records of a LAS file in groups that can be read in any order. Those of a compressed
/// file are kept in memory, decoded; plain ones are read when they are asked for.
class LasGroups {
  public:
    /// Records in a group; the last one may have fewer.
    static constexpr std::uint64_t SIZE = std::uint64_t{1} << 15;
    static std::uint64_t groupOf(std::uint64_t number) { return number / SIZE; }

    /// @param file, header  kept by reference
    /// @return empty on success; of a compressed file whatever is wrong with its points
    [[nodiscard]] ErrorPtr open(InputFile& file, const LasHeader& header,
                                const DataStructures::Work& work);

    /// Number of groups.
    std::uint64_t count() const { return (header_->count + SIZE - 1) / SIZE; }

    /// @param records  out: those of the group, one after the other, until the next call
    /// @return empty on success; Truncated when the file has shrunk meanwhile
    [[nodiscard]] ErrorPtr read(std::uint64_t group, std::span<const char>& records);

  private:
    [[nodiscard]] ErrorPtr hold(const DataStructures::Work& work);
    void append(std::span<const char> records);

    InputFile* file_ = nullptr;
    const LasHeader* header_ = nullptr;
    std::vector<char> buffer_;             ///< the group that was read last
    std::vector<std::vector<char>> held_;  ///< the groups of a compressed file
};

}  // namespace Ovr::Formats
