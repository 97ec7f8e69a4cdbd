// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>

#include "Ovr/Errors.h"
#include "Ovr/Progress.h"
#include "Ovr/Remarks.h"
#include "kit/AtomicFile.h"
#include "kit/InputFile.h"
#include "las/LasGroups.h"
#include "las/LasHeader.h"
#include "las/LasRecordWriter.h"

namespace Ovr::Formats {

/// Writes a LAS file again with its point records in another order, plain or compressed. Header,
/// variable-length records and what follows the points stay as they are but for what a change of
/// the compression changes. The records of a compressed file are kept in memory, those of a plain
/// one are not.
class LasReorder {
  public:
    /// @param lenient  take the points that can be read of a damaged file
    /// @return empty on success; NoTimes for a point format without time, Unsupported for more
    ///         points than one scan may have. Requires: called once.
    [[nodiscard]] ErrorPtr open(const std::filesystem::path& file, bool lenient, Remarks& remarks,
                                const DataStructures::Work& work);

    /// Points in the file.
    std::uint64_t count() const { return header_.count; }

    /// Visits every point in the order of the file.
    /// @param visit  takes the number of a point, from 0 on, and the times of it and of those that
    ///               follow, as the file has them
    [[nodiscard]] ErrorPtr visitTimes(
        const std::function<void(std::uint32_t first, std::span<const double> times)>& visit,
        const DataStructures::Work& work);

    /// Writes the file.
    /// @param compress  write compressed points
    /// @param order  the numbers of the points in their new order: a permutation
    [[nodiscard]] ErrorPtr write(const std::filesystem::path& target, Existing existing,
                                 bool compress, std::span<const std::uint32_t> order,
                                 const DataStructures::Work& work);

  private:
    [[nodiscard]] ErrorPtr writeHead(LasRecordWriter& writer, const std::filesystem::path& target,
                                     Existing existing, bool compress);
    void dropCompression(std::string& between);
    [[nodiscard]] ErrorPtr writePoints(LasRecordWriter& writer,
                                       std::span<const std::uint32_t> order,
                                       const DataStructures::Work& work);
    [[nodiscard]] ErrorPtr writeRest(LasRecordWriter& writer);
    [[nodiscard]] ErrorPtr readBytes(std::uint64_t begin, std::uint64_t end, std::string& bytes);

    InputFile file_;
    LasHeader header_;
    LasGroups groups_;
    std::string head_;  ///< the header's bytes, as for plain points
};

}  // namespace Ovr::Formats
