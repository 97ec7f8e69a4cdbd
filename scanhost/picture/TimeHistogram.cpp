// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/TimeHistogram.h"

#include <algorithm>
#include <cmath>

namespace ScanHost {

namespace {

constexpr std::size_t kBins = 60000;

}  // namespace

TimeHistogram::TimeHistogram(const Range<double>& range)
    : range_(range), width_((range.high - range.low) / kBins), bins_(kBins) {}

void TimeHistogram::add(double seconds) {
    const double bin = (seconds - range_.low) / width_;
    if (bin >= 0.0) {
        ++bins_[std::min(static_cast<std::size_t>(bin), kBins - 1)];
        ++count_;
    }
}

double TimeHistogram::startOf(std::size_t bin) const {
    return range_.low + static_cast<double>(bin) * width_;
}

std::vector<std::uint64_t> TimeHistogram::counts(double step) const {
    const double first = std::floor(range_.low / step);
    std::vector<std::uint64_t> counts(
        static_cast<std::size_t>(std::floor(range_.high / step) - first) + 1);
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        const double middle = startOf(bin) + 0.5 * width_;
        counts[static_cast<std::size_t>(std::floor(middle / step) - first)] += bins_[bin];
    }
    return counts;
}

std::vector<TimeHistogram::Gap> TimeHistogram::gaps() const {
    constexpr double kLeastPart = 0.01;
    // Between times that come by chance, one wait in millions is this many times the usual one.
    constexpr double kLeastWaits = 20.0;
    const double span = range_.high - range_.low;
    const double least =
        std::max(kLeastPart * span,
                 kLeastWaits * span / static_cast<double>(std::max<std::uint64_t>(1, count_)));
    std::vector<Gap> gaps;
    std::size_t afterLast = 0;  // the bin after the last one that has a time
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        if (bins_[bin] == 0) {
            continue;
        }
        if (startOf(bin) - startOf(afterLast) > least) {
            gaps.push_back({startOf(afterLast), startOf(bin)});
        }
        afterLast = bin + 1;
    }
    return gaps;
}

}  // namespace ScanHost
