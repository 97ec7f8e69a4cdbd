// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>

#include "Ovr/Errors.h"
#include "Ovr/Progress.h"
#include "Ovr/Remarks.h"
#include "kit/AtomicFile.h"
#include "kit/InputFile.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// Writes a LAS file again with its point records in another order. Every other byte of the file
/// stays as it is and where it is: header, variable-length records, and what follows the points.
class LasReorder {
  public:
    /// @return empty on success; NoTimes for a point format without time, Unsupported for more
    ///         points than one scan may have. Requires: called once.
    [[nodiscard]] ErrorPtr open(const std::filesystem::path& file, Remarks& remarks);

    /// Points in the file.
    std::uint64_t count() const { return header_.count; }

    /// Visits every point in the order of the file.
    /// @param visit  takes the point's number, from 0 on, and its time as the file has it
    [[nodiscard]] ErrorPtr visitTimes(
        const std::function<void(std::uint32_t number, double time)>& visit,
        const DataStructures::Work& work);

    /// Writes the file.
    /// @param ranks  by number, the place of each point among the points written: a permutation
    [[nodiscard]] ErrorPtr write(const std::filesystem::path& target, Existing existing,
                                 std::span<const std::uint32_t> ranks,
                                 const DataStructures::Work& work);

  private:
    [[nodiscard]] ErrorPtr copyBytes(std::uint64_t begin, std::uint64_t end, AtomicFile& target);

    InputFile file_;
    LasHeader header_;
};

}  // namespace Ovr::Formats
