// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace ScanHost {

enum class PictureKind { Plan, Side, Front, Panorama, Times, Path };

/// What the colours of points show.
enum class ColorBy {
    Automatic,  ///< the scan where there are several, else colour, reflection or height
    Own,        ///< the points' own colour
    Reflection,
    Height,
    Range,  ///< distance from the scanner, of a stance
    Time,
    Scan
};

/// What is to be drawn.
struct PictureRequest {
    PictureKind kind = PictureKind::Plan;
    ColorBy color = ColorBy::Automatic;
    std::uint32_t width = 1600;  ///< [pixels]
};

}  // namespace ScanHost
