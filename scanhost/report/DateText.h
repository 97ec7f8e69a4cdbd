// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace ScanHost {

/// A time as date and time of day, "2026-05-11 01:59:42 UTC"; just the seconds where it is too far
/// off to be a date.
/// @param unixSeconds  [s] since 1970
std::string dateText(double unixSeconds);

}  // namespace ScanHost
