// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>

#include "Hx/PtSetObject.h"
#include "Ovr/ScanSource.h"
#include "Tq/Mat4d.h"
#include "Tq/SmartPtr.h"
#include "las/LasFacts.h"

#include "pointset/CorvinPointSet.h"
#include "report/Console.h"
#include "session/ScanUnits.h"

namespace ScanHost {

/// A scan in the object tree, with its points.
struct ImportedScan {
    std::string name;
    std::string classIdentifier;  ///< of the scan data
    Ovr::ScanSource source;
    ScanUnits units{};  ///< of its coordinates
    /// Has seen the records of a LAS file; null for others, and unless asked for.
    std::shared_ptr<Ovr::Formats::LasFactsCounter> lasFacts{};
    bool trajectoryNamed = false;  ///< by the user or a project, not found next to the points
    std::shared_ptr<Vardex::CorvinPointSet> pointSet;
    Tq_1_1::SmartPtr<Hx::PtSetObject> container;

    /// From the points' frame to the world.
    Tq_1_1::Mat4d<double> toWorld() const;
};

/// Moves the scan's container to where its points belong: a stance by its pose, a mobile scan to
/// the project's origin. A pose that cannot be inverted is not used; the console gets a warning.
void place(const ImportedScan& scan, Console& console);

/// Warns when the user named a trajectory for a stance: it is not used.
void remarkOnStance(const ImportedScan& scan, Console& console);

}  // namespace ScanHost
