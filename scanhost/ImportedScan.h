// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Hx/IOMessages.h"
#include "Hx/OvrPointSet.h"
#include "Hx/PtSetObject.h"
#include "Ovr/ScanProject.h"
#include "Ovr/Vardex/CorvinScanData.h"
#include "Tq/Mat4d.h"
#include "formats/ScanFormat.h"

#include "pointset/CorvinPointSet.h"
#include "scanhost/Arguments.h"
#include "scanhost/Console.h"
#include "scanhost/ModuleSession.h"

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

/// Imports scans through the module into one project: they share one origin.
class ScanImporter {
  public:
    ScanImporter(ModuleSession& session, Console& console);

    /// The scans of a file that the options choose: all of them, or number N.
    std::vector<Ovr::Formats::ScanListing> list(const std::string& file,
                                                const ScanOptions& options) const;
    /// Imports one scan and places it in the tree. Throws a Failure when that fails.
    /// @param parent  where in the tree
    ImportedScan import(const Ovr::Formats::ScanListing& listing, Hx::Object& parent);
    /// Imports the scan that the options name; several to choose from are a failure.
    ImportedScan importOne(const ScanOptions& options);

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
