// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "HostExport.h"
#include "Ovr/Errors.h"
#include "Ovr/ScanFormat.h"
#include "Ovr/ScanProject.h"
#include "Ovr/ScanSource.h"
#include "Ovr/Uuid.h"

namespace Ovr {

enum class ProjectScanKind : std::uint8_t { Stance, Mobile };

/// One scan of a project, as the project file describes it. Values that the file does not give are
/// empty.
struct HOST_EXPORT ProjectScan {
    ProjectScanKind kind = ProjectScanKind::Stance;
    std::string name;                                 ///< UTF-8, unique in the project
    std::filesystem::path points;                     ///< exists; a known file format
    std::uint32_t scanIndex = 0;                      ///< among the scans of the points file
    std::uint64_t byteOffset = 0;                     ///< where the scan begins in it
    std::uint64_t line = 1;                           ///< the same place, in text formats
    std::optional<std::filesystem::path> trajectory;  ///< exists; mobile scans only
    std::optional<ClockSettings> clock;               ///< mobile scans only
    std::optional<std::string> scannerModel;
    std::optional<std::string> serialNumber;
    std::optional<std::string> firmware;
    std::optional<std::string> software;
    std::optional<std::string> vendor;
    std::optional<double> recordingTime;  ///< [s]
    std::optional<uuids::uuid> sessionId;
    /// Pose of the scanner, for points files without one: scan to world, 4 x 4, column by column,
    /// translation [m] in values 12, 13, 14. Stances only.
    std::optional<std::array<double, 16>> slamPose;

    /// Of the point-set class that holds such a scan.
    std::string classIdentifier() const;

    /// What an import needs: class of the point set, name, and the source with file, place,
    /// trajectory and clock.
    /// @param project  shared by all scans of the project file; may be empty
    ScanListing listing(std::shared_ptr<ScanProject> project) const;
};

/// A scanner project: JSON text that lists scans, see docs/project-file.md.
struct ProjectFile {
    /// The newest version of the format that is read.
    static constexpr int kVersion = 1;

    std::filesystem::path file;         ///< as it was given to FormatRegistry::readProject
    std::vector<ProjectScan> scans;     ///< in file order; relative paths are joined to the file's
    std::vector<std::string> warnings;  ///< what the reader remarked: one line for each
                                        ///< field that is not understood
};

}  // namespace Ovr
