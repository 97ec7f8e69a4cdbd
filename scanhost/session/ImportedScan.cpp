// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/ImportedScan.h"

#include "stance/CorvinStancePointSet.h"

namespace ScanHost {

Tq_1_1::Mat4d<double> ImportedScan::toWorld() const {
    return container->calcTrafoTo(nullptr);
}

void remarkOnStance(const ImportedScan& scan, Console& console) {
    if (scan.source.trajectory) {
        console.warn(scan.source.file.string() +
                     ": a stationary scan; the trajectory that is named for it is not used");
    }
}

void place(const ImportedScan& scan, Console& console) {
    Tq_1_1::Mat4d<double> matrix = Tq_1_1::Mat4d<double>::identity();
    if (const auto stance =
            std::dynamic_pointer_cast<Vardex::CorvinStancePointSet>(scan.pointSet)) {
        matrix = stance->getSlamPose();
    } else if (const auto origin = scan.source.project->origin()) {
        matrix = Tq_1_1::Mat4d<double>::translation(*origin);
    }
    if (!scan.container->setMatrix(matrix)) {
        console.warn(scan.name + ": the pose cannot be turned back and is not used");
    }
}

}  // namespace ScanHost
