// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "sample/House.h"

#include <cmath>
#include <cstddef>
#include <limits>

namespace ScanHost::Sample {

namespace {

constexpr std::array<Box, 3> kAir{House::kRoomA, House::kDoor, House::kRoomB};
constexpr std::array<Box, 2> kWindows{House::kWindowA, House::kWindowB};

bool contains(const Box& box, const Vec3& p) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (!(p[axis] >= box.low[axis] && p[axis] <= box.high[axis])) {
            return false;
        }
    }
    return true;
}

/// A ray's way to a face of a box.
struct Crossing {
    double distance = std::numeric_limits<double>::infinity();
    std::size_t axis = 0;
    double plane = 0.0;
};

Vec3 pointAt(const Vec3& origin, const Vec3& direction, const Crossing& crossing) {
    Vec3 point = origin + direction * crossing.distance;
    point[crossing.axis] = crossing.plane;
    return point;
}

/// The face through which a ray leaves a box that holds its origin.
Crossing leave(const Box& box, const Vec3& origin, const Vec3& direction) {
    Crossing nearest;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (direction[axis] == 0.0) {
            continue;
        }
        const double plane = direction[axis] > 0.0 ? box.high[axis] : box.low[axis];
        const double distance = (plane - origin[axis]) / direction[axis];
        if (distance < nearest.distance) {
            nearest = {distance, axis, plane};
        }
    }
    return nearest;
}

/// The face through which a ray enters a box from outside; infinitely far when it misses.
Crossing enter(const Box& box, const Vec3& origin, const Vec3& direction) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (direction[axis] == 0.0) {
            continue;
        }
        const double plane = direction[axis] > 0.0 ? box.low[axis] : box.high[axis];
        const Crossing face{(plane - origin[axis]) / direction[axis], axis, plane};
        if (face.distance > 0.0 && contains(box, pointAt(origin, direction, face))) {
            return face;
        }
    }
    return {};
}

/// The box of air that goes on beyond a face, if one does.
const Box* boxBeyond(const Box& from, const Crossing& crossing, const Vec3& point) {
    for (const Box& box : kAir) {
        const bool another = box.low.x != from.low.x;
        if (another && crossing.axis == 0 && contains(box, point)) {
            return &box;
        }
    }
    return nullptr;
}

Surface surfaceOf(const Box& box, std::size_t axis, double plane) {
    if (box.low.x == House::kDoor.low.x) {
        return plane == 0.0 && axis == 2 ? Surface::Floor : Surface::DoorFrame;
    }
    if (axis == 2) {
        return plane == 0.0 ? Surface::Floor : Surface::Ceiling;
    }
    return box.low.x == House::kRoomA.low.x ? Surface::WallOfRoomA : Surface::WallOfRoomB;
}

/// Boards and tiles, so that pictures of the house have something to show.
bool isDarkTile(const Vec3& point, double size) {
    const auto tile = [size](double value) {
        return static_cast<std::int64_t>(std::floor(value / size));
    };
    return ((tile(point.x) + tile(point.y)) & 1) != 0;
}

}  // namespace

bool House::isInside(const Vec3& point) {
    for (const Box& box : kAir) {
        if (contains(box, point)) {
            return !contains(kPillar, point);
        }
    }
    return false;
}

std::optional<Hit> House::cast(const Vec3& origin, const Vec3& direction) {
    const Box* air = nullptr;
    for (const Box& box : kAir) {
        air = air == nullptr && contains(box, origin) ? &box : air;
    }
    Crossing exit;
    Vec3 point;
    const Box* last = air;
    while (air != nullptr) {
        last = air;
        exit = leave(*air, origin, direction);
        point = pointAt(origin, direction, exit);
        air = boxBeyond(*air, exit, point);
    }
    const Crossing pillar = enter(kPillar, origin, direction);
    if (pillar.distance < exit.distance) {
        return Hit{pointAt(origin, direction, pillar), pillar.distance,
                   std::abs(direction[pillar.axis]), Surface::Pillar};
    }
    for (const Box& window : kWindows) {
        if (contains(window, point)) {
            return std::nullopt;
        }
    }
    return Hit{point, exit.distance, std::abs(direction[exit.axis]),
               surfaceOf(*last, exit.axis, exit.plane)};
}

std::array<std::uint8_t, 3> House::colorAt(Surface surface, const Vec3& point) {
    switch (surface) {
        case Surface::Floor:
            return isDarkTile(point, 0.5) ? std::array<std::uint8_t, 3>{150, 104, 66}
                                          : std::array<std::uint8_t, 3>{181, 134, 90};
        case Surface::Ceiling:
            return {238, 236, 230};
        case Surface::WallOfRoomA:
            return {112, 150, 196};
        case Surface::WallOfRoomB:
            return {126, 178, 122};
        case Surface::DoorFrame:
            return {92, 64, 44};
        case Surface::Pillar:
            break;
    }
    return {196, 60, 52};
}

double House::reflectionOf(Surface surface) {
    switch (surface) {
        case Surface::Floor:
            return 0.35;
        case Surface::Ceiling:
            return 0.9;
        case Surface::WallOfRoomA:
        case Surface::WallOfRoomB:
            return 0.7;
        case Surface::DoorFrame:
            return 0.2;
        case Surface::Pillar:
            break;
    }
    return 0.5;
}

}  // namespace ScanHost::Sample
