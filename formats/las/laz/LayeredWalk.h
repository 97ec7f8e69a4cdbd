// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "las/laz/ChunkList.h"
#include "las/laz/Schema.h"

namespace Ovr::Formats::Laz {

/// Finds the chunks of layers without a table: each one's head says where it ends and how many
/// points it has. A chunk whose head cannot be is the last of the list, up to the end of the point
/// data: to decode it tells what is wrong, after the points before it.
/// @param list  gets them
void walkLayeredChunks(InputFile& file, const Schema& schema, const PointData& data,
                       ChunkList& list);

}  // namespace Ovr::Formats::Laz
