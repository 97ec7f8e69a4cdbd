// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Tq_1_1 {

/// A rotation as a quaternion, scalar first. Without values it is the rotation by 0. Nothing brings
/// it to unit length.
struct Quaternion {
    double w = 1.0;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend constexpr bool operator==(const Quaternion&, const Quaternion&) = default;
};

}  // namespace Tq_1_1
