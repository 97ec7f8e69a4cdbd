// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "Ovr/Errors.h"
#include "kit/InputFile.h"
#include "las/laz/Schema.h"

namespace Ovr::Formats::Laz {

/// The variable-length record that describes a schema.
namespace SchemaRecord {

inline constexpr std::string_view USER_ID = "laszip encoded";
inline constexpr std::uint16_t RECORD_ID = 22204;

/// What follows its head.
std::string payload(const Schema& schema);

/// Reads and checks it.
/// @param begin         where in the file what follows its head begins
/// @param size          of that [bytes]
/// @param format        of the points, 0 to 10
/// @param recordLength  of the points [bytes]
/// @return empty on success
[[nodiscard]] ErrorPtr read(InputFile& file, std::uint64_t begin, std::size_t size, unsigned format,
                            std::size_t recordLength, Schema& schema);

}  // namespace SchemaRecord

}  // namespace Ovr::Formats::Laz
