// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <string>
#include <vector>

#include "Ovr/ScanSource.h"
#include "Tq/Vec3d.h"
#include "formats/InputFile.h"
#include "formats/LasBlocks.h"
#include "formats/LasHeader.h"
#include "formats/PointClock.h"
#include "formats/PointSink.h"
#include "formats/ScanFormat.h"
#include "formats/WorkWatch.h"

namespace Ovr::Formats {

/// Loads the points of a LAS file into a point set, block by block.
class LasPointLoader {
  public:
    /// All are kept by reference.
    /// @param warnings  receives what is noticed
    LasPointLoader(InputFile& file, const LasHeader& header, const ScanSource& source,
                   std::vector<std::string>& warnings);

    ErrorPtr load(const LoadTarget& target, StatisticsReport& statistics);

  private:
    enum class ColorDepth { Eight, Sixteen };
    /// What a pass over the points notices.
    struct Noticed {
        std::array<double, 3> largest{};  ///< coordinate relative to the origin, unsigned [m]
        TimeRange times;                  ///< as the file has them
        bool oddTime = false;             ///< some time is no finite number
    };

    ErrorPtr chooseOrigin();
    ErrorPtr pass(PointSink& sink, std::uint64_t count, WorkWatch& watch, bool& again);
    bool hasWideColor(const LasBlocks& blocks) const;
    void putBlock(const LasBlocks& blocks, PointSink& sink);
    void noticeTime(double time);
    void reportPrecision() const;
    void fillMetaData(VardexLib::CorvinMetaData& metaData) const;

    InputFile& file_;
    const LasHeader& header_;
    const ScanSource& source_;
    std::vector<std::string>& warnings_;
    LasRecordLayout layout_;
    Tq_1_1::Vec3d<double> origin_;
    ColorDepth depth_ = ColorDepth::Eight;
    Noticed noticed_;
};

}  // namespace Ovr::Formats
