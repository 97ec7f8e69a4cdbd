// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "HostExport.h"
#include "Ovr/Errors.h"
#include "Ovr/IScanData.h"
#include "Ovr/IScanIntegration.h"
#include "Ovr/Progress.h"
#include "Ovr/Remarks.h"
#include "Ovr/ScanSource.h"
#include "Ovr/TrajectoryNode.h"
#include "Ovr/Vardex/CorvinMetaData.h"
#include "Ovr/Vardex/IScanPointTimes.h"
#include "Tq/Vec3d.h"

namespace Ovr {

/// One scan of a file, as a look at its headers gives it.
struct ScanListing {
    std::string classIdentifier;  ///< of the point-set class that holds such a scan
    std::string name;             ///< the file's name, followed by " (2)", " (3)" ... for further
                                  ///< scans of one file
    ScanSource source;            ///< file, index and place; the caller adds the rest
};

/// What a reader is given to load points.
struct LoadTarget {
    Interfaces::IScanIntegration& integration;
    VardexLib::CorvinMetaData* metaData;  ///< null when the scan data have none
    std::uint64_t maximumCount;           ///< points to load at most
    DataStructures::Work work;
    Remarks& remarks;
};

/// What a reader is given to load point times.
struct TimeTarget {
    VardexLib::IScanPointTimes& times;
    std::uint64_t maximumCount;                                ///< what the points were loaded with
    const std::vector<VardexLib::TrajectoryNode>& trajectory;  ///< empty without one
    VardexLib::CorvinMobileMetaData* metaData;                 ///< null when absent
    double& timeZero;  ///< out: the time that is scan time 0 [s, trajectory's clock]
    DataStructures::Work work;
    Remarks& remarks;
};

/// A reader of one scan. Each operation opens the file afresh.
class HOST_EXPORT IScanReader {
  public:
    virtual ~IScanReader();

    /// A place near the points [m, world], from the file's headers: what the origin of their
    /// project is chosen from.
    /// @return empty when the points are not in world coordinates, and when the headers give none
    virtual std::optional<Tq_1_1::Vec3d<double>> place();

    /// Sizes the target and streams the points into it. Fills what the file knows of the metadata.
    /// @return empty on success
    virtual ErrorPtr loadPoints(const LoadTarget& target, StatisticsReport& statistics) = 0;

    /// Writes a time for every point, or none at all.
    /// @return empty on success; empty-handed formats have no times: this default says NoTimes
    virtual ErrorPtr loadTimes(const TimeTarget& target);

  protected:
    explicit IScanReader(ScanSource source);
    const ScanSource& source() const { return source_; }

  private:
    ScanSource source_;
};

/// One file format of the service. Keeps no state. Threads: any.
class HOST_EXPORT IScanFormat {
  public:
    virtual ~IScanFormat();

    /// For messages and help, for example "LAS". Unique among the formats.
    virtual std::string name() const = 0;
    /// Without the dot, lower case.
    virtual std::vector<std::string> extensions() const = 0;
    /// Of the point-set class that holds the format's scans.
    virtual std::string classIdentifier() const = 0;

    /// Whether a file looks like one of this format.
    /// @param beginning  the file's first bytes, FormatRegistry::kBeginning of them at most
    virtual bool recognises(std::string_view beginning) const = 0;

    /// Lists the scans of a file, in file order. Empty error on success, and then at least one.
    virtual ErrorPtr list(const std::filesystem::path& file,
                          std::vector<ScanListing>& scans) const = 0;
    virtual std::unique_ptr<IScanReader> makeReader(const ScanSource& source) const = 0;
};

}  // namespace Ovr
