// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "RegisterFormats.h"

#include "Ovr/FormatRegistry.h"
#include "las/LasReader.h"
#include "project/ProjectReader.h"
#include "ptx/PtxReader.h"
#include "trajectory/TrajectoryReader.h"

namespace Ovr::Formats {

void registerFormats() {
    FormatRegistry& registry = FormatRegistry::the();
    for (const auto& format : {lasFormat(), ptxFormat()}) {
        // A format that is there already stays.
        static_cast<void>(registry.add(format));
    }
    registry.setTrajectoryFormat(trajectoryFormat());
    registry.setProjectFormat(projectFormat());
}

}  // namespace Ovr::Formats
