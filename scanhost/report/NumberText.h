// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Tq/Vec3d.h"

namespace ScanHost {

// Numbers as people write and read them, the same in every locale.

/// Fixed notation with @p digits after the point; a value that rounds to zero has no minus sign.
/// "not a number", "infinite" or "-infinite" for what is no finite number.
std::string fixedText(double value, int digits);

/// Digits after the point of lengths [m], and of times [s] and fractions of a scan.
inline constexpr int kMetreDigits = 4;
inline constexpr int kSecondDigits = 6;

/// The fewest digits that read back as the same value.
std::string shortText(double value);

/// "x, y, z", each with @p digits after the point.
std::string pointText(const Tq_1_1::Vec3d<double>& point, int digits);

/// "1 point", "2 points".
std::string countText(std::uint64_t count, std::string_view one, std::string_view many);

/// Reads a whole text as a finite number; a leading plus sign is fine.
/// @return empty for anything else, "nan" and "inf" included
std::optional<double> parseNumber(std::string_view text);

/// Reads a whole text as a number of things. @return empty for anything else
std::optional<std::uint64_t> parseCount(std::string_view text);

/// Reads "X,Y,Z". @return empty for anything else
std::optional<Tq_1_1::Vec3d<double>> parsePoint(std::string_view text);

/// The beginning of a text that is too long to be shown whole, printable.
std::string shortened(std::string_view text, std::size_t longest = 60);

/// The text as it may go to a terminal: valid UTF-8 without control characters, which file names
/// and files' contents can hold.
std::string printable(std::string_view text);

}  // namespace ScanHost
