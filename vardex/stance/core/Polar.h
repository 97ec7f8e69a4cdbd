// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Vardex {

/// A point in polar coordinates around the scanner. How the angles count is said where the value is
/// used; see PolarMath.h for the two conventions.
template <typename T>
struct Polar {
    T radius{};      ///< in the unit of the Cartesian vector, not negative
    T horizontal{};  ///< [rad]
    T vertical{};    ///< [rad]

    friend constexpr bool operator==(const Polar&, const Polar&) = default;
};

}  // namespace Vardex
