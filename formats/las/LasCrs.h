// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "Ovr/Remarks.h"
#include "kit/InputFile.h"
#include "las/CrsDescription.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// Which records of a LAS file name its coordinate system.
enum class CrsSource : std::uint8_t { None, Wkt, GeoKeys };

struct LasCrs {
    CrsSource source = CrsSource::None;
    CrsDescription crs;  ///< empty without a source
};

/// Names the coordinate system of a LAS file: from its well-known text, or from its GeoTIFF keys
/// when there is none, or when the header does not say that the text counts.
/// @param remarks  receives what cannot be read or does not fit together
LasCrs readLasCrs(InputFile& file, const LasHeader& header, Remarks& remarks);

}  // namespace Ovr::Formats
