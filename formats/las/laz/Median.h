// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace Ovr::Formats::Laz {

/// The median of five numbers, one of which each new number replaces.
///
/// | state | at first |
/// |---|---|
/// | the five, in order | 0 |
/// | which end is dropped | the largest |
///
/// After a number at or above the median while the largest is dropped the smallest is, and the
/// other way round.
class Median {
  public:
    std::int32_t value() const { return five_[2]; }

    void add(std::int32_t x) {
        const std::int32_t middle = value();
        const std::array<std::int32_t, 4> kept =
            dropsLargest_ ? std::array{five_[0], five_[1], five_[2], five_[3]}
                          : std::array{five_[1], five_[2], five_[3], five_[4]};
        five_ = {std::min(kept[0], x), std::max(kept[0], std::min(kept[1], x)),
                 std::max(kept[1], std::min(kept[2], x)), std::max(kept[2], std::min(kept[3], x)),
                 std::max(kept[3], x)};
        dropsLargest_ = dropsLargest_ ? x < middle : x <= middle;
    }

  private:
    std::array<std::int32_t, 5> five_{};
    bool dropsLargest_ = true;
};

}  // namespace Ovr::Formats::Laz
