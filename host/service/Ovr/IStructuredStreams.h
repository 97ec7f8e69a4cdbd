// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <memory>

#include "HostExport.h"
#include "Ovr/ScanProject.h"

namespace Ovr {

/// What belongs to a scan and is not in its points file: here, the trajectory file.
class HOST_EXPORT IStructuredStreams {
  public:
    virtual ~IStructuredStreams();

    /// The trajectory file. It need not exist: reading it says so.
    virtual std::filesystem::path trajectoryFile() const = 0;

    /// The project whose origin the trajectory's positions are brought to; empty: they stay as
    /// they are in the file.
    virtual std::shared_ptr<ScanProject> project() const = 0;
};

/// Looks for a scan's streams: @p named if given, else NAME.EXT next to @p points,
/// with the extensions of the registered trajectory format.
/// @return empty when neither is there
HOST_EXPORT std::shared_ptr<IStructuredStreams> findStructuredStreams(
    const std::filesystem::path& points, const std::filesystem::path* named,
    std::shared_ptr<ScanProject> project);

}  // namespace Ovr
