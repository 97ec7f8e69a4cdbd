// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Ovr/Errors.h"
#include "kit/AtomicFile.h"
#include "kit/JobQueue.h"
#include "las/laz/Schema.h"

namespace Ovr::Formats {

/// Writes a LAS file from its parts, plain or compressed. The file appears when it is finished and
/// leaves no trace when it is not.
///
/// Header and records are those of the plain file: what compression changes in the header (format
/// byte, offset to the points, number of variable-length records, places after the points) is
/// changed here, and the record on the compression is put in front of the others. Chunks have
/// 50,000 points and are encoded on the cores that there are.
class LasRecordWriter {
  public:
    LasRecordWriter();
    LasRecordWriter(const LasRecordWriter&) = delete;
    LasRecordWriter& operator=(const LasRecordWriter&) = delete;
    ~LasRecordWriter();

    /// @param existing  what becomes of a file of the name
    /// @param header    as long as it says; its counts and bounds may still be open
    /// @param between   what stands between header and points: variable-length records, as many as
    ///                  the header counts, none of them on a compression, and any bytes after them
    /// @return empty on success. Requires: called once; point format and record length fit.
    [[nodiscard]] ErrorPtr open(const std::filesystem::path& file, Existing existing,
                                std::string header, std::string between, bool compress);

    /// @param records  whole records
    /// @return WriteFailed when the disk does not take them
    [[nodiscard]] ErrorPtr write(std::span<const char> records);

    /// After the last point: takes bytes of what follows the points, such as extended records.
    [[nodiscard]] ErrorPtr writeRest(std::string_view bytes);

    /// Brings the file to its name.
    /// @param header  with its counts and bounds, of the same size, format and record length
    /// @param restAt  where by this header what follows the points begins [bytes]; the places that
    ///                it names there move to where this file has it
    [[nodiscard]] ErrorPtr finish(std::string header, std::uint64_t restAt = 0);

  private:
    struct Job {
        std::string records;
        std::string chunk;
    };

    [[nodiscard]] ErrorPtr put(std::string_view bytes);
    [[nodiscard]] ErrorPtr giveChunk();
    [[nodiscard]] ErrorPtr takeChunk();
    [[nodiscard]] ErrorPtr endPoints();
    [[nodiscard]] ErrorPtr putChunkTable();
    void complete(std::string& header, std::uint64_t restAt) const;

    AtomicFile file_;
    std::uint64_t place_ = 0;     ///< of the next byte in the file
    std::uint64_t pointsAt_ = 0;  ///< in the file
    std::uint64_t restAt_ = 0;    ///< in the file; 0 until the points have ended
    std::size_t blockSize_ = 0;   ///< records are gathered up to here [bytes]
    std::string gathered_;
    Laz::Schema schema_;
    std::vector<std::uint32_t> chunkSizes_;  ///< [bytes]
    std::unique_ptr<JobQueue<Job>> jobs_;    ///< null when the points are plain
    std::size_t atOnce_ = 0;                 ///< chunks
};

}  // namespace Ovr::Formats
