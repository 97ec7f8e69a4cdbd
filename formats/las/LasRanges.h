// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <limits>

#include "Ovr/Errors.h"
#include "Ovr/Progress.h"
#include "kit/InputFile.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// Ranges of fields of the point records of a LAS file that the module does not hold. Without
/// points the lowest value is above the highest.
struct LasRanges {
    std::int16_t lowestAngle = std::numeric_limits<std::int16_t>::max();   ///< as stored
    std::int16_t highestAngle = std::numeric_limits<std::int16_t>::min();  ///< likewise
    std::uint16_t lowestSource = std::numeric_limits<std::uint16_t>::max();
    std::uint16_t highestSource = 0;

    bool isEmpty() const { return lowestAngle > highestAngle; }
};

/// A stored scan angle [degrees]. Up to point format 5 it is in whole degrees, then in 0.006.
double lasScanAngle(const LasHeader& header, std::int16_t stored);

/// Walks over the points that the header counts.
/// @return empty on success
[[nodiscard]] ErrorPtr findLasRanges(InputFile& file, const LasHeader& header, LasRanges& ranges,
                                     const DataStructures::Work& work);

}  // namespace Ovr::Formats
