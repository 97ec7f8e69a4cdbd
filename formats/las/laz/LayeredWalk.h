// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "las/laz/ChunkList.h"
#include "las/laz/Schema.h"

namespace Ovr::Formats::Laz {

/// Finds layered chunks without a table: each says how many points and bytes it has.
/// @param data  from the first chunk on; a chunk that its end cuts is listed up to there
/// @return empty on success; Truncated when the chunks hold fewer points than the header counts,
///         InvalidValue when they hold more
[[nodiscard]] ErrorPtr walkLayeredChunks(InputFile& file, const Schema& schema,
                                         const PointData& data, ChunkList& list);

}  // namespace Ovr::Formats::Laz
