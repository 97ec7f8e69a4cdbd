// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "Ovr/ScanFormat.h"
#include "Ovr/ScanSource.h"
#include "kit/InputFile.h"
#include "kit/PointClock.h"
#include "kit/PointPlacer.h"
#include "kit/PointSink.h"
#include "kit/WorkWatch.h"
#include "las/LasBlocks.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// Loads the points of a LAS file into a point set, block by block.
class LasPointLoader {
  public:
    /// All are kept by reference.
    LasPointLoader(InputFile& file, const LasHeader& header, const ScanSource& source);

    [[nodiscard]] ErrorPtr load(const LoadTarget& target, StatisticsReport& statistics);

    /// After load(): the range of the times of the points that were loaded, as the file has them.
    /// @return empty when one of them is no finite number
    std::optional<TimeRange> times() const {
        return noticed_.oddTime ? std::nullopt : std::optional(noticed_.times);
    }

  private:
    enum class ColorDepth { Eight, Sixteen };
    /// What a pass over the points notices.
    struct Noticed {
        TimeRange times;       ///< as the file has them
        bool oddTime = false;  ///< some time is no finite number
    };

    [[nodiscard]] ErrorPtr checkBold(std::uint64_t count, const DataStructures::Work& work);
    [[nodiscard]] ErrorPtr pass(PointSink& sink, std::uint64_t count, WorkWatch& watch,
                                bool& again);
    bool hasWideColor(const LasBlocks& blocks) const;
    void putBlock(const LasBlocks& blocks, PointSink& sink);
    void noticeTime(double time);
    void fillMetaData(VardexLib::CorvinMetaData& metaData) const;

    InputFile& file_;
    const LasHeader& header_;
    const ScanSource& source_;
    LasRecordLayout layout_;
    PointPlacer placer_;
    ColorDepth depth_ = ColorDepth::Eight;
    Noticed noticed_;
};

}  // namespace Ovr::Formats
