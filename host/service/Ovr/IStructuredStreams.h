// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "HostExport.h"
#include "Ovr/ScanProject.h"
#include "Ovr/ScanSource.h"
#include "Ovr/TimeUnit.h"

namespace Ovr {

/// What the user says of a trajectory file.
struct TrajectoryReading {
    std::optional<TimeUnit> unit{};  ///< of its times; empty: what the file says, else seconds
    bool inOrder = false;            ///< put the poses into the order of their times
};

/// What belongs to a scan and is not in its points file: here, the trajectory file.
class HOST_EXPORT IStructuredStreams {
  public:
    virtual ~IStructuredStreams();

    /// The trajectory file. It need not exist: reading it says so.
    virtual std::filesystem::path trajectoryFile() const = 0;

    /// The project whose origin the trajectory's positions are brought to; empty: they stay as
    /// they are in the file.
    virtual std::shared_ptr<ScanProject> project() const = 0;

    /// How the file is read; as it is, by default.
    virtual TrajectoryReading trajectoryReading() const { return {}; }
    /// Whether somebody named the file, as is the default, or it was found by its name.
    virtual bool isNamed() const { return true; }
};

/// Looks for a scan's streams: the trajectory that its source names, else NAME.EXT next to its
/// points, with the extensions of the registered trajectory format.
/// @return empty when neither is there, and when the source wants none
HOST_EXPORT std::shared_ptr<IStructuredStreams> findStructuredStreams(const ScanSource& source);

}  // namespace Ovr
