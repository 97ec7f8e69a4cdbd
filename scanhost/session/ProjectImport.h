// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "Tq/SmartPtr.h"

#include "dataobj/VardexDataObj.h"
#include "report/Console.h"
#include "session/ImportedScan.h"
#include "session/ModuleSession.h"
#include "session/ScanImporter.h"
#include "session/ScanOptions.h"

namespace ScanHost {

/// Makes the data object of a project file and puts it into the tree. Fields of the file that are
/// not understood are warnings. Throws a Failure when the file cannot be read.
Tq_1_1::SmartPtr<Vardex::VardexDataObj> openProject(ModuleSession& session, Console& console,
                                                    const std::string& file);

/// Imports the scans of a project that the options choose below its data object, with what the
/// project says of them.
std::vector<ImportedScan> importProject(Vardex::VardexDataObj& project, ScanImporter& importer,
                                        const ScanOptions& options, Console& console,
                                        Content content = Content::Points);

/// Imports the scans of all files and projects that the options name, into one project.
std::vector<ImportedScan> importAll(ModuleSession& session, ScanImporter& importer,
                                    const ScanOptions& options, Console& console, Content content);

/// The scan that the options name, of a points file or a project; several to choose from are a
/// failure. Nothing of it is read.
Ovr::ScanListing findOne(ModuleSession& session, Console& console, const ScanOptions& options);
/// Imports the scan that the options name, likewise.
ImportedScan importOne(ModuleSession& session, Console& console, const ScanOptions& options,
                       Content content);

}  // namespace ScanHost
