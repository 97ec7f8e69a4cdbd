// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace ScanHost {

/// Red, green and blue, 0 to 255.
using Rgb = std::array<std::uint8_t, 3>;

inline constexpr Rgb kWhite{255, 255, 255};
inline constexpr Rgb kBlack{0, 0, 0};
inline constexpr Rgb kInk{34, 34, 34};         ///< text and frames
inline constexpr Rgb kFaint{150, 150, 150};    ///< grids, hatches
inline constexpr Rgb kUnknown{176, 176, 176};  ///< points without the value that colours show

/// Colours for values. Both go from dark to light in even steps of brightness, so that they read
/// the same in grey and for colour-blind people. They stop before the lightest shades, which would
/// be lost on white paper.
enum class Palette {
    Points,  ///< dark blue over green to yellow
    Path     ///< blue over red to orange; tells a path from the points below it
};

/// Number of control points of a palette.
inline constexpr std::size_t kPaletteStops = 10;

/// The control points of a palette, evenly spaced from the lowest value to the highest.
const std::array<Rgb, kPaletteStops>& paletteStops(Palette palette);

/// @param share  0 for the lowest value, 1 for the highest; what is outside gets the end's colour
Rgb paletteColor(Palette palette, double share);

/// Colours for things that have no order, apart for colour-blind people too. The first seven are
/// all different; the next seven are darker ones, and so on.
Rgb categoryColor(std::size_t number);

/// The colour with its brightness multiplied.
/// @param factor  0 is black, 1 the colour itself
Rgb shaded(const Rgb& color, double factor);

}  // namespace ScanHost
