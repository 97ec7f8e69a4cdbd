// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Ovr/Remarks.h"
#include "kit/InputFile.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// A value that each point has besides those of its format.
struct LasDimension {
    std::string name;        ///< printable ASCII
    std::string type;        ///< "uint32", "double", "int16[3]", "5 bytes"
    std::size_t length = 0;  ///< [bytes]
};

/// What stands in point records after the fields of their format.
struct LasExtraBytes {
    std::vector<LasDimension> dimensions;
    std::size_t undocumented = 0;  ///< bytes of a record that nothing describes
};

/// Reads what a LAS file says of the extra bytes of its records.
/// @param remarks  receives what is wrong with it; dimensions from there on are left out
LasExtraBytes readLasExtraBytes(InputFile& file, const LasHeader& header, Remarks& remarks);

}  // namespace Ovr::Formats
