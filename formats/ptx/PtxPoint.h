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
#include "kit/TextLine.h"

namespace Ovr::Formats {

/// What a point line says.
struct PtxPoint {
    double distance = 0.0;  ///< from the scanner [m]
    ReadPoint point;
    bool isReturn = false;  ///< false for a cell without one, x = y = z = 0; the rest is not set
};

/// What is noticed in point lines and matters for the scan as a whole.
struct PtxFindings {
    double largestChannel = 0.0;
    bool anyFraction = false;  ///< a channel between 0 and 1
    Finding oddIntensity{};
    Finding oddColor{};
    PointPlacer placer{};

    /// Whether the colours are fractions: none above 1, and one between 0 and 1.
    bool hasFractionColors() const { return anyFraction && largestChannel <= 1.0; }
    /// Adds what was noticed in the lines after these.
    void merge(const PtxFindings& later);
};

/// Reads the point lines of one PTX scan: x y z intensity [red green blue [nx ny nz]], the same
/// number of fields on every line.
/// Threads: any number may parse at once, each with findings of its own.
class PtxPointParser {
  public:
    /// Decides the number of fields by the scan's first line.
    /// @return empty on success; WrongFormat for other numbers than 4, 7 and 10
    [[nodiscard]] ErrorPtr start(const TextLine& line);

    bool colored() const { return fields_ >= kColorFields; }

    /// Takes colours as fractions, of which 1 is 255, from now on.
    void takeFractionColors() { channelScale_ = kLargestChannel; }

    /// Reads a line. A line that is refused leaves the findings alone.
    [[nodiscard]] ErrorPtr parse(const TextLine& line, PtxPoint& point,
                                 PtxFindings& findings) const;

    /// Remarks on what was noticed in the lines.
    void remark(const PtxFindings& findings, Remarks& remarks, const std::string& file) const;

  private:
    static constexpr std::size_t kColorFields = 7;
    static constexpr std::size_t kMostFields = 10;
    static constexpr double kLargestChannel = 255.0;

    std::uint8_t colorOf(double value, std::uint64_t line, PtxFindings& findings) const;

    std::size_t fields_ = 0;
    double channelScale_ = 1.0;
};

}  // namespace Ovr::Formats
