// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Ovr/Errors.h"
#include "kit/InputFile.h"

namespace Ovr::Formats::Laz {

/// A chunk of a file.
struct ChunkPlace {
    std::uint64_t begin = 0;  ///< in the file [bytes]
    std::uint64_t end = 0;    ///< in the file [bytes]
    std::uint64_t first = 0;  ///< number of its first point
    std::uint64_t count = 0;  ///< of its points
};

/// Where a compressed file's chunks are.
struct ChunkList {
    /// All of them, in file order. Where ends are not known: the first one alone, up to the end of
    /// the point data, with all points of the file.
    std::vector<ChunkPlace> chunks;
    /// Otherwise each chunk begins where the decoding of the one before ended, and has as many
    /// points as the schema says.
    bool endsAreKnown = true;
};

/// The part of a file in which its points are, and how many the header counts.
struct PointData {
    std::uint64_t begin = 0;  ///< in the file [bytes]
    std::uint64_t end = 0;    ///< in the file [bytes]: extended records or the end
    std::uint64_t count = 0;
};

/// An error at a chunk of a file.
/// @param chunk  its number, from 0
/// @param point  of the file, from 0
[[nodiscard]] ErrorPtr chunkFault(const InputFile& file, Interfaces::ErrorCode code,
                                  std::uint64_t chunk, std::uint64_t point, std::uint64_t byte,
                                  std::string found, std::string expected);

}  // namespace Ovr::Formats::Laz
