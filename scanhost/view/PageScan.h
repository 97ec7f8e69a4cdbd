// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "Tq/Vec3d.h"

#include "report/Console.h"
#include "session/ImportedScan.h"
#include "session/MobileScan.h"
#include "session/PointSummary.h"

namespace ScanHost {

/// A scan that goes into a page, with what the page needs of it.
struct PageScan {
    const ImportedScan& scan;
    std::string address;  ///< the scan and its options, as the command line of scanhost names them
    std::optional<MobileScan> mobile;  ///< empty for a stance
    bool hasTrajectory = false;        ///< and positions by scan time
    bool hasTimes = false;             ///< of the points
    PointSummary summary;
    Tq_1_1::Vec3d<double> origin;  ///< [m, world], among the points: what theirs count from
    std::uint64_t tooFar = 0;      ///< returns that are not near enough to the origin for a page
};

/// Steps of the points' coordinates in a page [m].
constexpr double kPointStep = 1e-4;

/// Loads what a page needs of a scan. A trajectory that was found next to the points and cannot be
/// read, one in another unit than the points, or times that cannot be loaded, are a warning and
/// left out.
/// @param scan  outlives the result, and so does @p console
PageScan loadPageScan(const ImportedScan& scan, const std::string& address, Console& console);

/// Calls @p visit with index and world position of each return that a page can hold, in the order
/// of the records, until it answers false.
/// @return false when it did
bool forEachPagePoint(
    const PageScan& scan,
    const std::function<bool(std::uint64_t index, const Tq_1_1::Vec3d<double>& world)>& visit);

}  // namespace ScanHost
