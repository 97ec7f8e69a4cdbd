// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "sample/SampleMath.h"

namespace ScanHost::Sample {

/// An axis-parallel box [m].
struct Box {
    Vec3 low;
    Vec3 high;
};

enum class Surface : std::uint8_t { Floor, Ceiling, WallOfRoomA, WallOfRoomB, DoorFrame, Pillar };

/// Where a ray ends.
struct Hit {
    Vec3 point;       ///< [m, house frame]; on the surface to the bit in the axis across it
    double distance;  ///< [m] from the ray's origin
    double facing;    ///< cosine of the angle between ray and surface normal, 0 to 1
    Surface surface;
};

/// Two rooms joined by a door, with a pillar and two windows. House frame: x along both rooms, z
/// up, the origin in a lower corner of room A.
class House {
  public:
    /// Position of the house frame's origin in the world [m]; its axes are the world's.
    static constexpr Vec3 kCorner{431200.0, 5412300.0, 312.0};

    static constexpr Box kRoomA{{0.0, 0.0, 0.0}, {6.0, 5.0, 2.8}};
    static constexpr Box kDoor{{6.0, 2.0, 0.0}, {6.2, 3.1, 2.1}};
    static constexpr Box kRoomB{{6.2, 0.0, 0.0}, {11.0, 5.0, 2.8}};
    static constexpr Box kPillar{{8.4, 2.2, 0.0}, {8.8, 2.6, 2.8}};
    /// In the wall y = 0 of room A and in the wall x = 11 of room B.
    static constexpr Box kWindowA{{1.5, 0.0, 0.9}, {3.5, 0.0, 2.2}};
    static constexpr Box kWindowB{{11.0, 1.2, 0.9}, {11.0, 3.8, 2.2}};

    /// Whether a point is in the air of the rooms or the door, surfaces included.
    static bool isInside(const Vec3& point);

    /// Follows a ray to the first surface. Requires: isInside(origin); the direction has length 1.
    /// @return empty when the ray leaves through a window
    static std::optional<Hit> cast(const Vec3& origin, const Vec3& direction);

    /// Colour of a surface at a point, red, green and blue 0 to 255.
    static std::array<std::uint8_t, 3> colorAt(Surface surface, const Vec3& point);
    /// Part of the light that a surface throws back along its normal, 0 to 1.
    static double reflectionOf(Surface surface);
};

}  // namespace ScanHost::Sample
