// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>

#include "las/laz/DifferenceCoder.h"
#include "las/laz/Median.h"
#include "las/laz/Point14Fields.h"
#include "las/laz/SymbolModel.h"
#include "las/laz/TimeSequences.h"

namespace Ovr::Formats::Laz {

/// What one scanner channel's points are predicted from, and its models; see Point14.
struct Point14Context {
    /// @param point  taken as the channel's last point
    explicit Point14Context(const Point14Fields& point) : last(point) {
        heights.fill(point.z);
        intensities.fill(point.intensity);
        times.begin(point.time);
    }

    Point14Fields last;
    bool timeChanged = false;  ///< with the last point
    std::array<std::int32_t, 8> heights{};
    std::array<std::uint16_t, 8> intensities{};
    std::array<Median, 12> medianX;
    std::array<Median, 12> medianY;

    std::array<SymbolsOf<128>, 8> change;
    SymbolsOf<3> channel;
    std::array<SymbolsOf<16>, 16> count;
    std::array<SymbolsOf<16>, 16> number;
    SymbolsOf<13> numberOfSameTime;
    DifferenceCoder<32> x{2};
    DifferenceCoder<32> y{22};
    DifferenceCoder<32> z{20};
    std::array<SymbolsOf<256>, 64> classification;
    std::array<SymbolsOf<64>, 64> flags;
    std::array<SymbolsOf<256>, 64> user;
    DifferenceCoder<16> intensity{4};
    DifferenceCoder<16> angle{2};
    DifferenceCoder<16> source;
    TimeSequences<false> times;
};

}  // namespace Ovr::Formats::Laz
