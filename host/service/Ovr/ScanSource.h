// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

#include "HostExport.h"
#include "Ovr/Clock.h"
#include "Ovr/Progress.h"
#include "Ovr/ScanProject.h"

namespace Ovr {

/// Where a scan comes from: the file, the place of the scan in it, and what the user said of it.
/// Hears the records of a points file while the points are read from them. Called on the thread
/// that reads.
class HOST_EXPORT IRecordObserver {
  public:
    virtual ~IRecordObserver();

    /// The records come from the first on; those that came before are forgotten.
    virtual void begin() = 0;
    /// @param records  the next ones, as the format has them; valid during the call alone
    /// @param length   of one record [bytes]
    virtual void take(const char* records, std::size_t length, std::uint64_t count) = 0;
};

struct ScanSource {
    std::filesystem::path file;
    std::uint32_t scanIndex = 0;   ///< among the scans of the file
    std::uint64_t byteOffset = 0;  ///< where the scan begins in the file
    std::uint64_t line = 1;        ///< the same place as a line number, in text formats
    std::optional<std::filesystem::path> trajectory;  ///< instead of the file found next to it
    bool withoutTrajectory = false;                   ///< take none, whatever lies next to it
    bool sortTrajectory = false;  ///< put its poses into the order of their times
    bool lenient = false;  ///< read a file with fewer or more points than it says as far as it goes
    ClockSettings clock;
    std::shared_ptr<ScanProject> project;  ///< empty: coordinates stay as they are in the file
    std::shared_ptr<DataStructures::IProgress> progress;  ///< may be empty
    std::shared_ptr<DataStructures::ICancelInfo> cancel;  ///< may be empty
    std::shared_ptr<IRecordObserver> observer;            ///< may be empty

    friend bool operator==(const ScanSource&, const ScanSource&) = default;
};

}  // namespace Ovr
