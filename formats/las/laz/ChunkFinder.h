// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Ovr/Errors.h"
#include "Ovr/Remarks.h"
#include "kit/InputFile.h"
#include "las/laz/ChunkList.h"
#include "las/laz/Schema.h"

namespace Ovr::Formats::Laz {

/// Finds the chunks of a file: by the chunk table at the place that the file names, else by walking
/// over the chunks, of which layered ones say how long they are.
/// @param remarks  hears of a table that is missing
/// @return empty on success
[[nodiscard]] ErrorPtr findChunks(InputFile& file, const Schema& schema, const PointData& data,
                                  ChunkList& list, Remarks& remarks);

}  // namespace Ovr::Formats::Laz
