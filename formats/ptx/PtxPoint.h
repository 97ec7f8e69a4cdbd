// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "Ovr/Errors.h"
#include "Ovr/Remarks.h"
#include "kit/Finding.h"
#include "kit/PointPlacer.h"
#include "kit/PointSink.h"
#include "kit/TextLines.h"

namespace Ovr::Formats {

/// Reads the point lines of one PTX scan: x y z intensity [red green blue [nx ny nz]], the same
/// number of fields on every line.
class PtxPointParser {
  public:
    /// Decides the number of fields by the current line.
    /// @return empty on success; WrongFormat for other numbers than 4, 7 and 10
    [[nodiscard]] ErrorPtr start(const TextLines& lines);

    bool colored() const { return fields_ >= kColorFields; }

    /// Whether the colours read so far are fractions: none above 1, and one between 0 and 1.
    bool hasFractionColors() const { return anyFraction_ && largestChannel_ <= 1.0; }
    /// Takes colours as fractions, of which 1 is 255, from now on.
    void takeFractionColors() { channelScale_ = kLargestChannel; }

    /// Reads the current line.
    /// @param isReturn  false for a cell without a return, x = y = z = 0; @p point is not set then
    [[nodiscard]] ErrorPtr parse(const TextLines& lines, ReadPoint& point, bool& isReturn);

    /// Distance of the last point from the scanner [m].
    double distance() const { return distance_; }
    /// Remarks on what was noticed in the lines.
    void remark(Remarks& remarks, const std::string& file) const;

  private:
    static constexpr std::size_t kColorFields = 7;
    static constexpr std::size_t kMostFields = 10;
    static constexpr double kLargestChannel = 255.0;

    std::uint8_t colorOf(double value, std::uint64_t line);

    std::size_t fields_ = 0;
    double distance_ = 0.0;
    double channelScale_ = 1.0;
    double largestChannel_ = 0.0;
    bool anyFraction_ = false;  ///< a channel between 0 and 1
    Finding oddIntensity_;
    Finding oddColor_;
    PointPlacer placer_;
};

}  // namespace Ovr::Formats
