// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Ovr/ScanSource.h"

#include "las/CrsUnit.h"

#include "session/ScanClock.h"

namespace ScanHost {

/// One scan, or the scans of several files, and what the user says of them. What the user says goes
/// before what a project says.
struct ScanOptions {
    std::vector<std::string> files;
    std::optional<std::uint32_t> number;  ///< among the scans of a file, from 1 on
    std::optional<std::filesystem::path> trajectory;
    bool withoutTrajectory = false;
    bool sortTrajectory = false;
    bool lenient = false;
    std::optional<Ovr::TimeUnit> timeUnit;
    std::optional<double> timeOffset;  ///< [s]
    std::optional<Ovr::Clock> clock;
    std::optional<Ovr::TimeUnit> trajectoryUnit;
    std::optional<Ovr::Clock> trajectoryClock;
    std::optional<std::uint64_t> week;           ///< GPS week
    std::optional<Ovr::Formats::UnitKind> unit;  ///< of all coordinates, see ScanUnits
    TimeOptions times;
};

}  // namespace ScanHost
