// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

#include "Ovr/Clock.h"
#include "Ovr/Progress.h"
#include "Ovr/ScanProject.h"

namespace Ovr {

/// Where a scan comes from: the file, the place of the scan in it, and what the user said of it.
struct ScanSource {
    std::filesystem::path file;
    std::uint32_t scanIndex = 0;   ///< among the scans of the file
    std::uint64_t byteOffset = 0;  ///< where the scan begins in the file
    std::uint64_t line = 1;        ///< the same place as a line number, in text formats
    std::optional<std::filesystem::path> trajectory;  ///< instead of the file found next to it
    bool withoutTrajectory = false;  ///< take none, whatever lies next to it
    bool sortTrajectory = false;     ///< put its poses into the order of their times
    bool lenient = false;  ///< read a file with fewer or more points than it says as far as it goes
    ClockSettings clock;
    std::shared_ptr<ScanProject> project;  ///< empty: coordinates stay as they are in the file
    std::shared_ptr<DataStructures::IProgress> progress;  ///< may be empty
    std::shared_ptr<DataStructures::ICancelInfo> cancel;  ///< may be empty

    friend bool operator==(const ScanSource&, const ScanSource&) = default;
};

}  // namespace Ovr
