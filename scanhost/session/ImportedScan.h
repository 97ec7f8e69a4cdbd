// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Hx/IOMessages.h"
#include "Hx/OvrPointSet.h"
#include "Hx/PtSetObject.h"
#include "Ovr/FormatRegistry.h"
#include "Ovr/ScanProject.h"
#include "Ovr/Vardex/CorvinScanData.h"
#include "Tq/Mat4d.h"

#include "commands/Arguments.h"
#include "pointset/CorvinPointSet.h"
#include "report/Console.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/ModuleSession.h"

namespace ScanHost {

/// A scan in the object tree, with its points.
struct ImportedScan {
    std::string name;
    std::string classIdentifier;  ///< of the scan data
    Ovr::ScanSource source;
    bool trajectoryNamed = false;  ///< by the user or a project, not found beside the points
    std::shared_ptr<Vardex::CorvinPointSet> pointSet;
    Tq_1_1::SmartPtr<Hx::PtSetObject> container;

    /// From the points' frame to the world.
    Tq_1_1::Mat4d<double> toWorld() const;
    Ovr::VardexLib::CorvinScanData& scanData() const;
};

/// Throws unless @p result is plain success: the service's own words when it has any.
/// @param what  what was tried, for results without words
void requireOk(int result, const std::string& what);
/// Throws the error's words; a cancelled operation ends the program as such.
void requireOk(const Ovr::ErrorPtr& error);

/// Throws unless a file's name is UTF-8: the host knows no other names.
void requireUtf8(const std::string& file);

/// The scans of a file that the options choose: all of them, or number N.
template <typename Scan>
std::vector<Scan> chosenScans(std::vector<Scan> scans, const std::string& file,
                              const ScanOptions& options) {
    if (options.number) {
        if (*options.number > scans.size()) {
            throw Failure(file + ": found " + countText(scans.size(), "scan", "scans") +
                          ", expected a scan number " + std::to_string(*options.number));
        }
        scans = {std::move(scans[*options.number - 1])};
    }
    return scans;
}

/// Imports scans through the module into one project: they share one origin.
class ScanImporter {
  public:
    ScanImporter(ModuleSession& session, Console& console);

    /// The scans of a points file that the options choose.
    std::vector<Ovr::ScanListing> list(const std::string& file, const ScanOptions& options) const;
    /// Imports one scan and places it in the tree. Throws a Failure when that fails.
    /// @param options  go before what the listing says of its trajectory and clock
    /// @param parent   where in the tree
    ImportedScan import(const Ovr::ScanListing& listing, const ScanOptions& options,
                        Hx::Object& parent);

    const std::shared_ptr<Ovr::ScanProject>& project() const { return project_; }

  private:
    ModuleSession& session_;
    Console& console_;
    std::shared_ptr<Ovr::ScanProject> project_;
};

/// Moves the scan's container to where its points belong: a stance by its pose, a mobile scan to
/// the project's origin.
void place(const ImportedScan& scan, Console& console);

}  // namespace ScanHost
