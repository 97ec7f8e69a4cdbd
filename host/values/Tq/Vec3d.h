// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

namespace Tq_1_1 {

/// Three components of one type, x first. The user decides units and frame.
template <typename T>
struct Vec3d {
    using Scalar = T;

    T x{};
    T y{};
    T z{};

    constexpr Vec3d() = default;
    constexpr Vec3d(T x_, T y_, T z_) : x(x_), y(y_), z(z_) {}

    /// Component 0, 1 or 2. Requires: i < 3.
    constexpr T& operator[](std::size_t i) { return i == 0 ? x : i == 1 ? y : z; }
    constexpr const T& operator[](std::size_t i) const { return i == 0 ? x : i == 1 ? y : z; }

    friend constexpr bool operator==(const Vec3d&, const Vec3d&) = default;
    friend constexpr Vec3d operator+(const Vec3d& a, const Vec3d& b) {
        return {a.x + b.x, a.y + b.y, a.z + b.z};
    }
    friend constexpr Vec3d operator-(const Vec3d& a, const Vec3d& b) {
        return {a.x - b.x, a.y - b.y, a.z - b.z};
    }
    friend constexpr Vec3d operator*(const Vec3d& v, T factor) {
        return {v.x * factor, v.y * factor, v.z * factor};
    }
};

}  // namespace Tq_1_1
