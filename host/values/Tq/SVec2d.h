// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Tq_1_1 {

/// A pair of numbers. For grid coordinates it is (col, row) unless an operation says otherwise.
template <typename T>
struct SVec2d {
    T first{};
    T second{};

    constexpr SVec2d() = default;
    constexpr SVec2d(T first_, T second_) : first(first_), second(second_) {}

    friend constexpr bool operator==(const SVec2d&, const SVec2d&) = default;
};

}  // namespace Tq_1_1
