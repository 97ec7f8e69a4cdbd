// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

namespace Ovr::Formats {

/// What the standard (ASPRS LAS 1.4) calls a class of points.
/// @param format  of the points: formats from 6 on have a table of their own
/// @param number  0 to 255
std::string_view lasClassName(unsigned format, unsigned number);

}  // namespace Ovr::Formats
