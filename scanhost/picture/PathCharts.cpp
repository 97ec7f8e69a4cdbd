// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/PathCharts.h"

#include <algorithm>

#include "session/MobileScan.h"

namespace ScanHost {

double speedWindow(double duration) {
    constexpr double kWindow = 1.0;  // a step of a person who walks
    constexpr double kShortestPart = 0.02;
    return std::min(kWindow, kShortestPart * duration);
}

std::vector<PathState> pathStates(const std::vector<PathNode>& path, double window) {
    std::vector<PathState> states;
    std::vector<const PathNode*> kept;
    for (const PathNode& node : path) {
        if (!kept.empty() && node.seconds < kept.back()->seconds) {
            continue;
        }
        const double way =
            kept.empty() ? 0.0 : distanceBetween(kept.back()->position, node.position);
        states.push_back({node.seconds, node.position.z,
                          (states.empty() ? 0.0 : states.back().distance) + way, 0.0});
        kept.push_back(&node);
    }
    std::size_t from = 0;
    std::size_t to = 0;
    for (std::size_t i = 0; i < states.size(); ++i) {
        while (from < i && states[from].seconds < states[i].seconds - 0.5 * window) {
            ++from;
        }
        while (to + 1 < states.size() &&
               (to <= i || states[to].seconds < states[i].seconds + 0.5 * window)) {
            ++to;
        }
        // At least to the neighbours, however far they are.
        const std::size_t before = from == i && i > 0 ? i - 1 : from;
        const double time = states[to].seconds - states[before].seconds;
        const double way = distanceBetween(kept[before]->position, kept[to]->position);
        states[i].speed = time > 0.0 ? way / time : 0.0;
    }
    return states;
}

}  // namespace ScanHost
