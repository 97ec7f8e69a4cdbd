// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "Ovr/Remarks.h"
#include "kit/InputFile.h"

namespace Ovr::Formats {

/// The head of a variable-length record [bytes].
namespace LasVlr {
inline constexpr std::size_t kUserId = 2;
inline constexpr std::size_t kUserIdLength = 16;
inline constexpr std::size_t kRecordId = 18;
inline constexpr std::size_t kLength = 20;
inline constexpr std::size_t kHeadSize = 54;
}  // namespace LasVlr

/// Where the variable-length records of a file stand.
struct LasVlrs {
    std::uint64_t begin = 0;  ///< in the file [bytes]
    std::uint64_t end = 0;    ///< where the points begin [bytes]
    std::uint32_t count = 0;
};

/// What follows the head of the record on the compression.
struct SchemaPlace {
    std::uint64_t begin = 0;  ///< in the file [bytes]
    std::uint16_t size = 0;   ///< [bytes]
};

/// Walks over the variable-length records. Only the one on the compression is needed, so a broken
/// chain only earns a warning: the place of the points stands on its own.
/// @return empty when no record is on a compression
std::optional<SchemaPlace> findSchemaRecord(InputFile& file, const LasVlrs& records,
                                            Remarks& remarks);

}  // namespace Ovr::Formats
