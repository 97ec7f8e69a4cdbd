// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>

#include "kit/InputFile.h"
#include "las/LasBlocks.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// Walks over the records of a compressed file. Chunks of known ends are decoded on the cores that
/// there are, as many at once as fit into 24 MiB with their records; large ones and those of
/// unknown ends one after another and block by block. The first error in the order of the file is
/// the one that is given.
/// @param file, header  kept by reference. Requires: the header has a compression.
std::unique_ptr<LasBlocks> openLazBlocks(InputFile& file, const LasHeader& header,
                                         std::uint64_t count);

}  // namespace Ovr::Formats
