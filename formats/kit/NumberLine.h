// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "Ovr/Errors.h"
#include "kit/TextLine.h"

namespace Ovr::Formats {

/// The most numbers that readNumbers takes from a line.
inline constexpr std::size_t kMostNumbers = 20;

/// Reads a line of finite numbers, apart by blanks.
/// @param numbers  out: as many as the line must hold, kMostNumbers at most; undefined on failure
/// @param why      after the number of fields in the message, for example ", as in the first line"
/// @return empty on success; WrongFormat for another number of fields, InvalidValue for a field
///         that is no finite number. The message names file, line, field and what was expected.
[[nodiscard]] ErrorPtr readNumbers(const TextLine& line, std::span<double> numbers,
                                   std::string_view why = {});

}  // namespace Ovr::Formats
