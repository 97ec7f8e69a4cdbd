// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "mobile/CorvinMobilePointSet.h"
#include "session/ModuleSession.h"

namespace ScanHost {

/// Finds the order of time of points, by the module's sort: a point set whose records carry the
/// points' numbers in their colour bytes is filled and sorted, and its colours are read again.
class TimeOrder {
  public:
    /// @param session  outlives this
    explicit TimeOrder(const ModuleSession& session) : session_(session) {}

    /// Makes room for so many points. Throws a Failure when there is none.
    void begin(std::uint64_t count);
    /// Adds the next point.
    /// @param number   its number
    /// @param seconds  its time, 0 to kLongestSpan; kept to the microsecond
    void add(std::uint32_t number, double seconds);
    /// Puts the points that were added into the order of their times, those of one time into the
    /// order of their numbers, and hands them over.
    /// Throws a Failure when more or fewer points were added than there is room for.
    /// @param numbers  out: those of the points in that order
    /// @return how many have the same time as a neighbour
    std::uint64_t finish(std::span<std::uint32_t> numbers);

    /// What a point set of the module holds [s]: 32 bits of microseconds.
    static constexpr double kLongestSpan = 4294.0;

  private:
    void sort();
    std::uint32_t numberAt(std::uint64_t place) const;
    double timeAt(std::uint64_t place) const;

    const ModuleSession& session_;
    std::shared_ptr<Vardex::CorvinMobilePointSet> points_;
    std::uint64_t added_ = 0;
};

}  // namespace ScanHost
