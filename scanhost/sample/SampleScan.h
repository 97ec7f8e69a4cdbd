// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "sample/SampleMath.h"

namespace ScanHost::Sample {

// The scans of a simulated scanner in the sample house. What they hold is known exactly, so answers
// about them can be checked.

/// One return of the scanner.
struct Return {
    Vec3 point;  ///< [m]; frame as the owner says
    std::uint16_t reflection = 0;
    std::array<std::uint8_t, 3> color{};
};

/// A scan taken while standing still.
struct StanceScan {
    struct Cell {
        Return value;  ///< point in the scanner's frame
        bool hasReturn = false;
    };

    std::size_t rows = 0;     ///< row 0 looks down, the last one up
    std::size_t cols = 0;     ///< clockwise seen from above, column 0 along the scanner's x axis
    std::vector<Cell> cells;  ///< row by row
    Mat4 pose;                ///< scanner frame to world
};

/// A scan taken while walking.
struct WalkScan {
    struct Point {
        Return value;  ///< point in the world
        double time;   ///< [s] on the walk's clock
    };
    struct Node {
        double time;  ///< [s] on the walk's clock
        Vec3 position;
        Quaternion rotation;
    };

    std::vector<Point> points;  ///< surface by surface, not in the order of time
    std::vector<Node> nodes;    ///< in the world, ascending
};

/// Adjusted standard GPS time at which the walk begins [s].
inline constexpr double kWalkStart = 462500000.0;
/// [s]
inline constexpr double kWalkDuration = 32.0;
/// Time between trajectory nodes [s].
inline constexpr double kNodeStep = 0.05;

/// The scan from the first or second stance: number 0 stands in room A, number 1 in room B.
/// The cells without a return look through a window.
StanceScan simulateStance(int number);

/// The walk through both rooms: two beams leave the scanner at a time in opposite directions.
WalkScan simulateWalk();

/// Where the scanner is at a time since the walk's start [m, world]. Between 9 s and 11 s it stands
/// still.
Vec3 walkPosition(double seconds);

}  // namespace ScanHost::Sample
