// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>

#include "Tq/Vec3d.h"

namespace Tq_1_1 {

/// A 4 x 4 matrix, stored column by column: the element in row r and column c is value 4c + r. The
/// translation of a transformation is in values 12, 13 and 14.
template <typename T>
struct Mat4d {
    std::array<T, 16> values{};

    static constexpr Mat4d identity() {
        return {{T{1}, 0, 0, 0, 0, T{1}, 0, 0, 0, 0, T{1}, 0, 0, 0, 0, T{1}}};
    }
    static constexpr Mat4d translation(const Vec3d<T>& offset) {
        Mat4d m = identity();
        m.values[12] = offset.x;
        m.values[13] = offset.y;
        m.values[14] = offset.z;
        return m;
    }

    constexpr T& operator()(std::size_t row, std::size_t col) { return values[4 * col + row]; }
    constexpr const T& operator()(std::size_t row, std::size_t col) const {
        return values[4 * col + row];
    }

    friend constexpr bool operator==(const Mat4d&, const Mat4d&) = default;

    /// a after b: transforms with b first.
    friend constexpr Mat4d operator*(const Mat4d& a, const Mat4d& b) {
        Mat4d product;
        for (std::size_t col = 0; col < 4; ++col) {
            for (std::size_t row = 0; row < 4; ++row) {
                T sum{};
                for (std::size_t k = 0; k < 4; ++k) {
                    sum += a(row, k) * b(k, col);
                }
                product(row, col) = sum;
            }
        }
        return product;
    }

    /// The point @p p, transformed; the bottom row is taken as (0, 0, 0, 1).
    constexpr Vec3d<T> transform(const Vec3d<T>& p) const {
        const Mat4d& m = *this;
        return {m(0, 0) * p.x + m(0, 1) * p.y + m(0, 2) * p.z + m(0, 3),
                m(1, 0) * p.x + m(1, 1) * p.y + m(1, 2) * p.z + m(1, 3),
                m(2, 0) * p.x + m(2, 1) * p.y + m(2, 2) * p.z + m(2, 3)};
    }
};

}  // namespace Tq_1_1
