// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "Ovr/TrajectoryNode.h"

namespace ScanHost {

/// Part of a path: the numbers of the nodes with which it begins and ends.
struct PathStretch {
    std::size_t first = 0;
    std::size_t last = 0;
};

/// How fast something changes along a path, from one node to the next.
struct PathRate {
    double median = 0.0;   ///< of the steps
    double largest = 0.0;  ///< of a step
    std::size_t at = 0;    ///< number of the node with which that step begins
};

/// What the nodes of a path tell. A step leads from one node to the next. One in which time does
/// not rise (it falls, stays or is not a number) counts for the length and is left out of speeds,
/// turning rates and gaps.
struct PathStats {
    double duration = 0.0;             ///< from the earliest node to the latest [s]
    double length = 0.0;               ///< along all nodes, in the unit of the positions
    std::size_t lowest = 0;            ///< number of the first of the lowest nodes
    std::size_t highest = 0;           ///< number of the first of the highest nodes
    std::size_t timelessSteps = 0;     ///< steps in which time does not rise
    std::optional<double> medianStep;  ///< [s]; empty without a step in which time rises
    std::optional<PathRate> speed;     ///< [unit of the positions per second]; likewise
    std::optional<PathRate> turning;   ///< [degrees per second]; likewise
    std::vector<PathStretch> gaps;     ///< steps longer than kGapFactor x the median step
    std::vector<PathStretch> stops;    ///< in the order of the nodes

    static constexpr double kGapFactor = 10.0;
};

/// A scanner stands still while it is within this distance of where the stop began, for longer than
/// this time.
inline constexpr double kStopRadius = 0.05;   // [m]
inline constexpr double kShortestStop = 1.0;  // [s]

/// @param nodes       at least one
/// @param stopRadius  kStopRadius in the unit of the positions; empty where they have no distances,
///                    and no stops are found then
PathStats pathStats(std::span<const Ovr::VardexLib::TrajectoryNode> nodes,
                    std::optional<double> stopRadius);

/// From the time of the first node of a stretch to that of the last [s].
double durationOf(std::span<const Ovr::VardexLib::TrajectoryNode> nodes,
                  const PathStretch& stretch);

/// Whether no node is earlier than the one before it. Also false when a time is not a number.
bool areInOrderOfTime(std::span<const Ovr::VardexLib::TrajectoryNode> nodes);

}  // namespace ScanHost
