// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Ovr/ScanFormat.h"
#include "Ovr/ScanProject.h"

#include "report/Console.h"
#include "session/ImportedScan.h"
#include "session/ModuleSession.h"
#include "session/ScanOptions.h"

namespace ScanHost {

/// What of a scan is read when it is imported. Questions about the path never touch the points.
enum class Content {
    PathOnly,
    Points,
    PointsForTimes,  ///< with room for times in their records, where the file has times
    Everything,      ///< the same, and the facts of a LAS file
};

/// Imports scans through the module into one project: they share one origin.
class ScanImporter {
  public:
    /// @param session  and @p console outlive this
    ScanImporter(ModuleSession& session, Console& console);

    /// The scans of a points file that the options choose. Throws a Failure when the file cannot be
    /// read, or has no scan of the number that the options ask for.
    std::vector<Ovr::ScanListing> list(const std::string& file, const ScanOptions& options) const;
    /// Imports one scan and places it in the tree. Throws a Failure when that fails.
    /// @param options  go before what the listing says of its trajectory and clock
    /// @param parent   where in the tree
    /// @param content  of a mobile scan; a stance has its points always
    ImportedScan import(const Ovr::ScanListing& listing, const ScanOptions& options,
                        Hx::Object& parent, Content content = Content::Points);

    const std::shared_ptr<Ovr::ScanProject>& project() const { return project_; }

  private:
    std::shared_ptr<Vardex::CorvinPointSet> createPointSet(const Ovr::ScanListing& listing) const;
    static void makeRoomForTimes(const ImportedScan& scan, const Ovr::Formats::LasHeader& header);
    void readPoints(const ImportedScan& scan) const;

    ModuleSession& session_;
    Console& console_;
    std::shared_ptr<Ovr::ScanProject> project_;
};

/// A source with what the user says of the scan.
Ovr::ScanSource withOptions(Ovr::ScanSource source, const ScanOptions& options);

/// Throws a Failure unless a file with @p count scans has the one that the options ask for.
void requireNumber(const ScanOptions& options, std::size_t count, const std::string& file);

/// The scans of a file that the options choose: all of them, or number N. Throws a Failure when
/// there is no number N.
template <typename Scan>
std::vector<Scan> chosenScans(std::vector<Scan> scans, const std::string& file,
                              const ScanOptions& options) {
    requireNumber(options, scans.size(), file);
    if (options.number) {
        scans = {std::move(scans[*options.number - 1])};
    }
    return scans;
}

}  // namespace ScanHost
