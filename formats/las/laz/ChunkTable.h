// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kit/InputFile.h"
#include "las/laz/ChunkList.h"
#include "las/laz/Schema.h"

namespace Ovr::Formats::Laz {

/// The table of a file's chunks: 32 bits of version, which is 0, 32 bits of number, and a stream.
///
/// | coded for each chunk, 32 bits | context of 2 | predicted from |
/// |---|---|---|
/// | number of points, only where chunks vary | 0 | that of the chunk before, at first 0 |
/// | number of bytes | 1 | that of the chunk before, at first 0 |
namespace ChunkTable {

/// Of version and number [bytes].
inline constexpr std::uint64_t HEAD_SIZE = 8;

/// Whether a table of the version that is read may begin at a place of the file.
bool isThere(InputFile& file, std::uint64_t place);

/// Reads a table. Nothing that it says is taken before it fits between the first chunk and the
/// table.
/// @param place  of the table in the file [bytes]
/// @param data   begins with the first chunk; its end is not looked at
/// @return what is wrong with the table; empty if nothing is
std::string read(InputFile& file, const Schema& schema, const PointData& data, std::uint64_t place,
                 std::vector<ChunkPlace>& chunks);

/// @param sizes  of the chunks [bytes], all with the same number of points
std::string encode(const std::vector<std::uint32_t>& sizes);

}  // namespace ChunkTable

}  // namespace Ovr::Formats::Laz
