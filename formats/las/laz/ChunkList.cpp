// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/ChunkList.h"

#include <fmt/format.h>

#include <utility>

namespace Ovr::Formats::Laz {

ErrorPtr chunkFault(const InputFile& file, Interfaces::ErrorCode code, std::uint64_t chunk,
                    std::uint64_t point, std::uint64_t byte, std::string found,
                    std::string expected) {
    return makeError(code,
                     {file.name(), fmt::format("chunk {}, point {}, byte {}", chunk, point, byte),
                      std::move(found), std::move(expected)});
}

}  // namespace Ovr::Formats::Laz
