// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>

#include "Ovr/Errors.h"
#include "kit/TextLines.h"

namespace Ovr::Formats {

/// What stands in front of the points of one scan in a PTX file.
struct PtxHeader {
    int columns = 0;
    int rows = 0;
    /// The 4 x 4 matrix, value for value as in the file, where the rows hold what the axes and the
    /// origin of the scanner become: a matrix by columns, with the translation in values 12 to 14.
    std::array<double, 16> pose{};

    std::uint64_t cells() const {
        return static_cast<std::uint64_t>(columns) * static_cast<std::uint64_t>(rows);
    }
};

/// Reads the header of a scan and checks that the rest of the file can hold as many points.
/// Requires: the first line of the header is the current one.
/// @return empty on success, and then the last line of the header is the current one
[[nodiscard]] ErrorPtr readPtxHeader(TextLines& lines, PtxHeader& header);

}  // namespace Ovr::Formats
