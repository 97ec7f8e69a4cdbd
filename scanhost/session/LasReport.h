// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "las/LasCrs.h"
#include "las/LasExtraBytes.h"
#include "las/LasFacts.h"
#include "las/LasHeader.h"

#include "report/Console.h"
#include "report/Report.h"
#include "session/ImportedScan.h"

namespace ScanHost {

/// What a LAS file says of itself, and what its points show.
struct LasDescription {
    Ovr::Formats::LasHeader header;
    Ovr::Formats::LasCrs system;
    Ovr::Formats::LasExtraBytes extra;
    Ovr::Formats::LasFacts facts;
};

/// @return empty for files of another format. Requires: a scan that was imported with everything.
std::optional<LasDescription> readLas(const ImportedScan& scan, Console& console);

/// Adds the coordinate system. @param las  null for files of another format, which say none
void describeSystem(const LasDescription* las, const ScanUnits& units, Report& report);

/// Adds a section: version, origin of the file, classes, returns, flags, extra dimensions, and
/// where the header differs from the points.
void describeLas(const LasDescription& las, const ScanUnits& units, Report& report);

}  // namespace ScanHost
