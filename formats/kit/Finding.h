// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>

namespace Ovr::Formats {

/// Something in a text file that may occur at many lines and is reported once.
struct Finding {
    std::uint64_t count = 0;
    std::uint64_t firstLine = 0;
    double extreme = 0.0;  ///< largest value that was given

    void add(std::uint64_t line, double value);
    /// ", first at line 12"
    std::string where() const;
};

}  // namespace Ovr::Formats
