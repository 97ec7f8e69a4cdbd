// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/Palette.h"

#include <algorithm>
#include <cmath>

namespace ScanHost {

namespace {

constexpr std::array<Rgb, kPaletteStops> kPoints{{{68, 1, 84},
                                                  {72, 36, 117},
                                                  {65, 68, 135},
                                                  {53, 95, 141},
                                                  {42, 120, 142},
                                                  {33, 145, 140},
                                                  {34, 168, 132},
                                                  {68, 191, 112},
                                                  {122, 209, 81},
                                                  {189, 223, 38}}};

constexpr std::array<Rgb, kPaletteStops> kPath{{{13, 8, 135},
                                                {60, 4, 152},
                                                {98, 0, 164},
                                                {132, 10, 166},
                                                {164, 36, 152},
                                                {192, 64, 130},
                                                {214, 92, 107},
                                                {233, 120, 84},
                                                {247, 150, 60},
                                                {254, 183, 45}}};

constexpr std::array<Rgb, 7> kCategories{{{0, 114, 178},
                                          {213, 94, 0},
                                          {0, 158, 115},
                                          {204, 121, 167},
                                          {86, 180, 233},
                                          {230, 159, 0},
                                          {90, 90, 90}}};

}  // namespace

const std::array<Rgb, kPaletteStops>& paletteStops(Palette palette) {
    return palette == Palette::Points ? kPoints : kPath;
}

Rgb paletteColor(Palette palette, double share) {
    const std::array<Rgb, kPaletteStops>& stops = paletteStops(palette);
    // A share that is not a number becomes 0.
    const double place = (share > 0.0 ? std::min(share, 1.0) : 0.0) * (kPaletteStops - 1);
    const std::size_t below = std::min<std::size_t>(static_cast<std::size_t>(place), 8);
    const double part = place - static_cast<double>(below);
    Rgb color{};
    for (std::size_t i = 0; i < color.size(); ++i) {
        color[i] = static_cast<std::uint8_t>(
            std::lround((1.0 - part) * stops[below][i] + part * stops[below + 1][i]));
    }
    return color;
}

Rgb categoryColor(std::size_t number) {
    constexpr double kDarker = 0.62;
    const std::size_t round = number / kCategories.size();
    return shaded(kCategories[number % kCategories.size()],
                  std::pow(kDarker, static_cast<double>(round)));
}

Rgb shaded(const Rgb& color, double factor) {
    Rgb result{};
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] = static_cast<std::uint8_t>(std::lround(factor * color[i]));
    }
    return result;
}

}  // namespace ScanHost
