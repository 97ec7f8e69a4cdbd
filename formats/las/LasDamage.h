// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "Ovr/Errors.h"
#include "Ovr/Progress.h"
#include "Ovr/Remarks.h"
#include "kit/InputFile.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// Lets the header of a file with compressed points count those that can be decoded: decodes them
/// all, up to the first damage, and warns of that. Plain points are left as they are.
/// @return empty on success; Cancelled
[[nodiscard]] ErrorPtr shortenToReadable(InputFile& file, LasHeader& header, Remarks& remarks,
                                         const DataStructures::Work& work);

/// Writes the count of points into the bytes of a header that counts another number. Those by
/// return become 0, which says that they are not known.
void setLasCount(std::string& bytes, const LasHeader& header);

}  // namespace Ovr::Formats
