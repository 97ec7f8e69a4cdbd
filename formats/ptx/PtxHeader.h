// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "Ovr/Errors.h"
#include "Ovr/Remarks.h"
#include "kit/TextLines.h"

namespace Ovr::Formats {

/// What stands in front of the points of one scan in a PTX file.
struct PtxHeader {
    int columns = 0;
    int rows = 0;
    /// The 4 x 4 matrix, value for value as in the file, where the rows hold what the axes and the
    /// origin of the scanner become: a matrix by columns, with the translation in values 12 to 14.
    std::array<double, 16> pose{};
    /// The lines above the matrix: the scanner's position and its three axes.
    std::array<double, 12> placement{};

    std::uint64_t cells() const {
        return static_cast<std::uint64_t>(columns) * static_cast<std::uint64_t>(rows);
    }
};

/// Reads the header of a scan and checks that the rest of the file can hold as many points.
/// @param lenient  let a grid for which the file has no room have as many columns as fit
/// Requires: the first line of the header is the current one.
/// @return empty on success, and then the last line of the header is the current one
[[nodiscard]] ErrorPtr readPtxHeader(TextLines& lines, PtxHeader& header, bool lenient);

/// Warns of a matrix that is no rotation with a translation, and of one that says another placement
/// than the lines above it.
/// @param place  file and line of the scan, for the messages
void remarkOnPtxPose(const PtxHeader& header, const std::string& place, Remarks& remarks);

}  // namespace Ovr::Formats
