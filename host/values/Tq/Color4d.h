// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

namespace Tq_1_1 {

/// Four colour channels, 0 to 3.
template <typename T>
struct Color4d {
    T channel[4]{};

    constexpr T& operator[](std::size_t i) { return channel[i]; }
    constexpr const T& operator[](std::size_t i) const { return channel[i]; }

    friend constexpr bool operator==(const Color4d&, const Color4d&) = default;
};

}  // namespace Tq_1_1
