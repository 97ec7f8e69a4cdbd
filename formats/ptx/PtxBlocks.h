// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "Ovr/Errors.h"
#include "kit/JobQueue.h"
#include "kit/TextLines.h"
#include "ptx/PtxPoint.h"

namespace Ovr::Formats {

/// How the lines of a scan are shared out.
struct PtxSharing {
    unsigned threads;       ///< 0: the calling one does all
    std::size_t blockSize;  ///< [bytes]
};

/// One thread for each core, up to those that the calling one can feed; none on a single core.
PtxSharing usualPtxSharing();

/// Some of a scan's lines, and what they say.
struct PtxBlock {
    TextBlock lines;
    std::vector<PtxPoint> points;
    std::uint64_t count = 0;  ///< points that were read, the first ones of the vector
    PtxFindings findings;
    ErrorPtr error;                 ///< empty, or what is wrong with the line after those points
    std::uint64_t errorOffset = 0;  ///< where that line begins in the file [bytes]
    std::uint64_t errorLine = 0;    ///< its number, counted from 1
};

/// Walks over the points of a scan, block by block in the order of the file. The calling thread
/// reads ahead and other threads parse; a scan that fits into one block is parsed by the calling
/// thread. What a block gives does not depend on the number of threads.
class PtxBlocks {
  public:
    /// @param lines   its next line is the scan's first point; kept by reference, and not to be
    ///                used before next() has given null or as many points as there are cells
    /// @param parser  kept by reference
    /// @param cells   lines to read, at least 1
    PtxBlocks(TextLines& lines, const PtxPointParser& parser, std::uint64_t cells,
              const PtxSharing& sharing);

    /// Goes to the next block. Requires: cells are left and the block before had no error.
    /// @return the block, valid until the next call; null when the lines ended, see
    ///         TextLines::error()
    /// @throw std::bad_alloc  also when memory ran out on another thread
    PtxBlock* next();

  private:
    bool give();
    void read(PtxBlock& block) const;

    TextLines& lines_;
    const PtxPointParser& parser_;
    std::uint64_t left_;  ///< cells that are not given to the queue
    PtxSharing sharing_;
    std::size_t atOnce_ = 1;  ///< blocks
    std::unique_ptr<PtxBlock> current_;
    std::optional<JobQueue<PtxBlock>> queue_;  ///< the last member: its threads use the others
};

}  // namespace Ovr::Formats
