// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "Tq/Color4d.h"

#include "pointset/core/PointRecord.h"

/// What the fields of one scan point mean. Coordinates are metres in the frame of the scan's
/// points: the scanner's of a stationary scan, the project's origin of a mobile one.
namespace Vardex::ScanPointMath {

/// A reflection as it shares the colour bytes: little-endian in channels 0 and 1, the others 0.
/// The colour flag is clear, so the point counts as one without colour.
constexpr Tq_1_1::Color4d<unsigned char> colorOfReflection(std::uint16_t reflection) {
    return {{static_cast<unsigned char>(reflection & 0xFF),
             static_cast<unsigned char>(reflection >> 8), 0, 0}};
}

/// The reflection of a point that has no field of its own for it: the value in channels 0 and 1, or
/// for a coloured point its lightness on the scale 0 to 4080.
constexpr std::uint16_t sharedReflection(const Tq_1_1::Color4d<unsigned char>& color) {
    const unsigned c0 = color[0];
    const unsigned c1 = color[1];
    if ((color[3] & Tq_1_1::kColorFlag) == 0) {
        return static_cast<std::uint16_t>(c0 | (c1 << 8));
    }
    const unsigned c2 = color[2];
    const unsigned low = c0 < c1 ? (c0 < c2 ? c0 : c2) : (c1 < c2 ? c1 : c2);
    const unsigned high = c0 > c1 ? (c0 > c2 ? c0 : c2) : (c1 > c2 ? c1 : c2);
    return static_cast<std::uint16_t>((low + high) * 8);
}

/// Distance from the scanner [m], computed in single precision.
double distanceOf(const ScanPoint& point);

/// The point moved along its ray to another distance.
/// A point at the origin (closer than about 7 nanometres) has no ray and moves along +x.
/// @param distance  [m]; narrowed to single precision
ScanPoint atDistance(const ScanPoint& point, double distance);

}  // namespace Vardex::ScanPointMath
