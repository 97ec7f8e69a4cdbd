// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "picture/Scene.h"

namespace ScanHost {

/// Adds what scan time 0 is on the clock of the points file, and its date where that is known.
void addClockNote(const SceneScan& scan, std::vector<std::string>& notes);

}  // namespace ScanHost
