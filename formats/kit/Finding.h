// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstdint>

namespace Ovr::Formats {

/// Something in a text file that may occur at many lines and is reported once.
struct Finding {
    std::uint64_t count = 0;
    std::uint64_t firstLine = 0;
    double extreme = 0.0;  ///< largest value that was given

    void add(std::uint64_t line, double value) {
        if (count++ == 0) {
            firstLine = line;
        }
        extreme = std::max(extreme, value);
    }
};

}  // namespace Ovr::Formats
