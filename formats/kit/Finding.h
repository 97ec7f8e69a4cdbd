// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstdint>

namespace Ovr::Formats {

/// Something in a file that may occur at many lines or points and is reported once.
struct Finding {
    std::uint64_t count = 0;
    std::uint64_t first = 0;  ///< line or point
    double extreme = 0.0;     ///< largest value that was given

    void add(std::uint64_t place, double value) {
        if (count++ == 0) {
            first = place;
        }
        extreme = std::max(extreme, value);
    }
    /// Adds what was found in places after these.
    void merge(const Finding& later) {
        first = count == 0 ? later.first : first;
        count += later.count;
        extreme = std::max(extreme, later.extreme);
    }
};

}  // namespace Ovr::Formats
