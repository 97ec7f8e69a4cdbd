// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "Ovr/TrajectoryNode.h"
#include "Tq/Vec3d.h"

namespace Vardex {

/// Scanner positions on a fixed grid of scan times, so that a lookup is one division and one index.
///
/// Bin i stands for scan time i x duration / 9999: bin 0 is centred at scan time 0, the last one at
/// the scan's duration. A bin holds the position of the last node that is nearest to it; later
/// nodes all fall into the last bin. A bin that no node falls into lies on the straight line
/// between the two nodes that bound the gap, at the bin's own time; after the last node it holds
/// the last position. Nodes earlier than the first one, and nodes without a number for a time, fall
/// into no bin.
///
/// Filled once and never again: positions handed out earlier stay consistent with later ones.
/// Threads: buildOnce may be called from any; after it returned positionAt is free of locks.
class TrajectoryCache {
  public:
    static constexpr std::size_t kBinCount = 10000;

    /// Runs @p build unless an earlier call has completed one; concurrent callers wait for it.
    /// What @p build throws passes on, and the next call builds again.
    /// @param build  calls fill() once
    template <typename Build>
    void buildOnce(const Build& build) {
        if (built_.load(std::memory_order_acquire)) {
            return;
        }
        // Not std::call_once: after an exception it leaves its waiters waiting in some libraries.
        const std::lock_guard lock(building_);
        if (!built_.load(std::memory_order_relaxed)) {
            build();
            built_.store(true, std::memory_order_release);
        }
    }

    /// Computes the bins. Without nodes, or with a duration that is not greater than 0, there will
    /// never be positions. Throws only when memory runs out, and then changes nothing.
    /// @param nodes     in the order recorded; the first one is scan time 0
    /// @param duration  of the scan [s]
    void fill(std::span<const Ovr::VardexLib::TrajectoryNode> nodes, double duration);

    /// Where the scanner was [m], in the frame of the scan's points.
    /// @param seconds  scan time; the nearest bin answers, the later one when two are equally near
    /// @return no value when the cache has no positions, or when the time lies half a bin or more
    ///         before scan time 0 or after the scan's duration, or is not a number
    /// Requires: buildOnce has returned.
    std::optional<Tq_1_1::Vec3d<double>> positionAt(double seconds) const;

  private:
    std::mutex building_;                           // held while the bins are computed
    std::atomic<bool> built_ = false;               // asked first, so that answers take no lock
    std::vector<Tq_1_1::Vec3d<double>> positions_;  // kBinCount once filled and available
    bool unavailable_ = false;                      // filled, but there is no answer for any time
    double binWidth_ = 0.0;                         // [s]
};

}  // namespace Vardex
