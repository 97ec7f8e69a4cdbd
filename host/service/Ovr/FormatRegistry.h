// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "HostExport.h"
#include "Ovr/Errors.h"
#include "Ovr/IStructuredStreams.h"
#include "Ovr/ProjectFile.h"
#include "Ovr/Remarks.h"
#include "Ovr/ScanFormat.h"
#include "Ovr/ScanProject.h"
#include "Ovr/TrajectoryNode.h"

namespace Ovr {

/// How trajectories are read.
struct TrajectoryFormat {
    std::vector<std::string> extensions;  ///< without the dot; a scan's trajectory is looked for
                                          ///< under them next to its points, in this order
    /// Reads a file.
    /// @param reading  how; the nodes' times are seconds
    /// @param nodes  in world coordinates; replaced on success, untouched on failure
    std::function<ErrorPtr(const std::filesystem::path& file, const TrajectoryReading& reading,
                           std::vector<VardexLib::TrajectoryNode>& nodes, Remarks& remarks)>
        read;
    /// Whether a file begins as a trajectory, that is with a pose. May be empty: all do.
    std::function<bool(const std::filesystem::path& file)> begins;
};

/// How project files are read.
struct ProjectFormat {
    std::vector<std::string> extensions;  ///< without the dot
    std::function<bool(std::string_view beginning)> recognises;
    /// @param project  changed only on success; its warnings are left empty
    /// @param remarks  receives a line for each field that is not understood
    std::function<ErrorPtr(const std::filesystem::path& file, ProjectFile& project,
                           Remarks& remarks)>
        read;
};

/// The file formats of the service. Empty from the start: the application fills it.
/// Threads: any.
class HOST_EXPORT FormatRegistry {
  public:
    /// How much of a file formats are recognised by [bytes].
    static constexpr std::size_t kBeginning = 4096;

    static FormatRegistry& the();

    /// @return false, and nothing has changed, when a format of that name is there
    [[nodiscard]] bool add(std::shared_ptr<const IScanFormat> format);
    /// @return false when no format has the name
    bool remove(std::string_view name);
    /// In the order in which they were added.
    std::vector<std::shared_ptr<const IScanFormat>> formats() const;

    /// The format of a points file: the first that recognises its content, else the one that has
    /// its extension (case does not matter).
    /// @return empty when neither is there
    std::shared_ptr<const IScanFormat> find(const std::filesystem::path& file) const;
    /// For messages and help: ".las, .ptx".
    std::string knownExtensions() const;

    void setTrajectoryFormat(TrajectoryFormat format);
    TrajectoryFormat trajectoryFormat() const;
    void setProjectFormat(ProjectFormat format);
    ProjectFormat projectFormat() const;
    /// Whether a file is a project, by its content; a file that cannot be read, by its extension.
    bool isProject(const std::filesystem::path& file) const;

    /// Reads a trajectory with the format that was set. Unsupported when none was.
    /// @param project  positions come out relative to its origin, chosen from the first pose when
    ///                 it has none yet; null leaves them in the world
    /// @param nodes    replaced on success, untouched on failure
    [[nodiscard]] ErrorPtr readTrajectory(const std::filesystem::path& file, ScanProject* project,
                                          std::vector<VardexLib::TrajectoryNode>& nodes,
                                          Remarks& remarks,
                                          const TrajectoryReading& reading = {}) const;
    /// Reads the trajectory of streams likewise. A file that was only found next to the points, and
    /// does not begin as a trajectory, is none: that is a remark.
    [[nodiscard]] ErrorPtr readTrajectory(const IStructuredStreams& streams,
                                          std::vector<VardexLib::TrajectoryNode>& nodes,
                                          Remarks& remarks) const;
    /// Reads a project with the format that was set. Unsupported when none was.
    /// @param project  changed only on success; its warnings are what the format remarked
    [[nodiscard]] ErrorPtr readProject(const std::filesystem::path& file,
                                       ProjectFile& project) const;

  private:
    FormatRegistry() = default;

    mutable std::mutex mutex_;
    std::vector<std::shared_ptr<const IScanFormat>> formats_;
    TrajectoryFormat trajectory_;
    ProjectFormat project_;
};

/// The error for a points file that no format takes.
[[nodiscard]] HOST_EXPORT ErrorPtr unknownFormat(const std::filesystem::path& file);

/// Says what stands in the way of reading a file: that it is missing, a directory, not a regular
/// file, or empty. Devices and pipes are refused, for opening one could wait for ever.
/// @return empty when nothing does, as far as can be told without opening it
[[nodiscard]] HOST_EXPORT ErrorPtr checkReadable(const std::filesystem::path& file);

/// Lists the scans of a points file of any known format. Tells a missing file, a directory, an
/// empty file and an unknown format apart.
[[nodiscard]] HOST_EXPORT ErrorPtr listScans(const std::filesystem::path& file,
                                             std::vector<ScanListing>& scans, bool lenient = false);

}  // namespace Ovr
