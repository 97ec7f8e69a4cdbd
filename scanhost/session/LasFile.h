// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "Ovr/ScanSource.h"
#include "las/LasHeader.h"

namespace ScanHost {

/// The header of a LAS file. What is wrong with the file is said when its points are read.
/// @return empty for files of another format, and when it cannot be read
std::optional<Ovr::Formats::LasHeader> lasHeaderOf(const Ovr::ScanSource& source);

/// Whether a file is a LAS file, as far as its beginning tells.
bool isLas(const Ovr::ScanSource& source);

}  // namespace ScanHost
