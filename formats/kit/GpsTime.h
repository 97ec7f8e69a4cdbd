// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace Ovr::Formats {

/// Unix time of an adjusted GPS time, that is of GPS seconds minus 1e9. GPS time is ahead of UTC
/// by the leap seconds inserted since 1980.
/// @param adjusted  [s]
/// @return [us] since 1970-01-01 UTC
std::int64_t unixMicroseconds(double adjusted);

}  // namespace Ovr::Formats
