// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

#include "session/PointSummary.h"

namespace ScanHost {

/// How many times fall into each of many short spans of one length.
class TimeHistogram {
  public:
    /// A span without a time in it [s].
    struct Gap {
        double from;
        double to;
    };

    /// @param range  of the times that are to be added [s]; low < high
    explicit TimeHistogram(const Range<double>& range);

    void add(double seconds);

    const Range<double>& range() const { return range_; }
    std::uint64_t count() const { return count_; }

    /// Counts per span of @p step seconds; the first span begins at the multiple of the step that
    /// is not after the first time.
    std::vector<std::uint64_t> counts(double step) const;

    /// Spans without times that are longer than a hundredth of the whole and than any that chance
    /// would leave between so many times.
    std::vector<Gap> gaps() const;

  private:
    double startOf(std::size_t bin) const;

    Range<double> range_;
    double width_;  ///< of a short span [s]
    std::uint64_t count_ = 0;
    std::vector<std::uint32_t> bins_;
};

}  // namespace ScanHost
