// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "HostExport.h"
#include "Ovr/Errors.h"
#include "Ovr/IScanData.h"
#include "Ovr/IScanIntegration.h"
#include "Ovr/ScanSource.h"
#include "Ovr/TrajectoryNode.h"
#include "Ovr/Vardex/CorvinMetaData.h"
#include "Ovr/Vardex/IScanPointTimes.h"

namespace Ovr::Formats {

/// One scan of a file, as a look at its headers gives it.
struct ScanListing {
    std::string classIdentifier;  ///< of the point-set class that holds such a scan
    std::string name;             ///< the file's name, with " (2)", " (3)" ... behind it for
                                  ///< further scans of one file
    ScanSource source;            ///< file, index and place; the caller adds the rest
};

/// What a reader is given to load points.
struct LoadTarget {
    Interfaces::IScanIntegration& integration;
    VardexLib::CorvinMetaData* metaData;  ///< null when the scan data have none
    std::uint64_t maximumCount;           ///< points to load at most
};

/// What a reader is given to load point times.
struct TimeTarget {
    VardexLib::IScanPointTimes& times;
    std::uint64_t maximumCount;                                ///< what the points were loaded with
    const std::vector<VardexLib::TrajectoryNode>& trajectory;  ///< empty without one
    VardexLib::CorvinMobileMetaData* metaData;                 ///< null when absent
    DataStructures::IProgress* progress;                       ///< null when nobody listens
    DataStructures::ICancelInfo* cancel;                       ///< null when nobody may cancel
    double* timeZero = nullptr;  ///< out: the time that is scan time 0 [s, trajectory's clock];
                                 ///< null when nobody asks
};

/// A reader of one file format. Made for one scan; each operation opens the file afresh.
class HOST_EXPORT IScanReader {
  public:
    virtual ~IScanReader();

    /// Sizes the target and streams the points into it. Fills what the file knows of the metadata.
    /// @return empty on success
    virtual ErrorPtr loadPoints(const LoadTarget& target, StatisticsReport& statistics) = 0;

    /// Writes a time for every point, or none at all. A format without times answers NoTimes.
    virtual ErrorPtr loadTimes(const TimeTarget& target) = 0;

    /// What was noticed in a file that was accepted, one line each, in order.
    virtual std::vector<std::string> warnings() const = 0;
    /// What was found out on the way and gives no cause for concern, one line each, in order.
    virtual std::vector<std::string> notes() const;
};

/// One file format of the service.
struct Format {
    /// Lists the scans of a file, in file order. Empty error on success, and then at least one.
    std::function<ErrorPtr(const std::filesystem::path& file, std::vector<ScanListing>& scans)>
        list;
    std::function<std::unique_ptr<IScanReader>(const ScanSource& source)> makeReader;
    /// Of the point-set class that holds the format's scans; empty when it is not one for all.
    std::string classIdentifier = {};
};

/// The file formats of the service by extension. LAS and PTX are there from the start.
/// Threads: any.
class HOST_EXPORT FormatRegistry {
  public:
    static FormatRegistry& the();

    /// @param extension  without the dot, lower case
    /// @return false when the extension is taken
    bool registerFormat(std::string extension, Format format);
    bool unregisterFormat(const std::string& extension);

    /// @return the format for the file's extension (case does not matter); empty when unknown
    std::shared_ptr<const Format> find(const std::filesystem::path& file) const;
    /// For messages: ".las, .ptx".
    std::string knownExtensions() const;

  private:
    FormatRegistry();

    mutable std::mutex mutex_;
    std::unordered_map<std::string, std::shared_ptr<const Format>> formats_;
};

/// The error for a file whose extension no format is registered for.
HOST_EXPORT ErrorPtr unknownExtension(const std::filesystem::path& file);

/// Lists the scans of a file of any known format. Tells a missing file, a directory, an empty file
/// and an unknown extension apart.
HOST_EXPORT ErrorPtr listScans(const std::filesystem::path& file, std::vector<ScanListing>& scans);

}  // namespace Ovr::Formats
