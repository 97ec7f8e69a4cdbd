// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "FuzzFile.h"
#include "Ovr/FormatRegistry.h"
#include "trajectory/TrajectoryReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::FuzzFile file(data, size);
    Ovr::ScanProject project;
    std::vector<Ovr::VardexLib::TrajectoryNode> nodes;
    Ovr::Remarks remarks;
    static const bool ready = [] {
        Ovr::FormatRegistry::the().setTrajectoryFormat(Ovr::Formats::trajectoryFormat());
        return true;
    }();
    static_cast<void>(ready);
    if (Ovr::FormatRegistry::the().readTrajectory(file.path(), &project, nodes, remarks)) {
        return 0;
    }
    for (const auto& node : nodes) {
        for (const double value : node.pose) {
            if (!std::isfinite(value)) {
                std::abort();
            }
        }
    }
    return 0;
}
