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

/// A reader of one scan. Each operation opens the file afresh. The scan data keep the reader, so
/// that it may keep what it read of the headers, as long as the file is the same.
/// Threads: one at a time.
class HOST_EXPORT IScanReader {
  public:
    virtual ~IScanReader();

    /// A place near the points [m, world], from the beginning of the file: what the origin of their
    /// project is chosen from.
    /// @param remarks  receives what is noticed there
    /// @return empty, which is the default, when the points are not in world coordinates, and when
    ///         the file cannot be read or gives no place
    virtual std::optional<Tq_1_1::Vec3d<double>> place(Remarks& remarks);

    /// Sizes the target and streams the points into it. Fills what the file knows of the metadata.
    /// @return empty on success
    [[nodiscard]] virtual ErrorPtr loadPoints(const LoadTarget& target,
                                              StatisticsReport& statistics) = 0;

    /// Writes a time for every point, or none at all.
    /// @return empty on success. The default is for formats without times: it says NoTimes.
    [[nodiscard]] virtual ErrorPtr loadTimes(const TimeTarget& target);

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

    /// Lists the scans of a file, in file order: by default one, named after the file, without a
    /// look into it.
    /// @return empty on success, and then there is at least one
    /// @param lenient  of ScanSource; the sources that are listed carry it on
    [[nodiscard]] virtual ErrorPtr list(const std::filesystem::path& file, bool lenient,
                                        std::vector<ScanListing>& scans) const;
    virtual std::unique_ptr<IScanReader> makeReader(const ScanSource& source) const = 0;
};

}  // namespace Ovr
