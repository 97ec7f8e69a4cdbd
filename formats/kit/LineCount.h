// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Ovr::Formats {

/// A line of more characters is a fault: no text file of numbers has such lines.
inline constexpr std::size_t kLongestLine = std::size_t{1} << 16;

/// Lines at the beginning of a text.
struct LineCount {
    std::size_t bytes = 0;     ///< with their line ends
    std::uint64_t lines = 0;   ///< blank ones as well
    std::uint64_t filled = 0;  ///< lines that hold something
};

/// Counts lines, at several bytes per cycle where they begin without blanks. It stops after
/// @p most lines that hold something, and before a line that is too long or whose end is not there.
/// @param isEnd  whether what follows the last line end is a line too
LineCount countLines(std::string_view text, std::uint64_t most, bool isEnd);

}  // namespace Ovr::Formats
