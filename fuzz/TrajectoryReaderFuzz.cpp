// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/TrajectoryReader.h"

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::FuzzFile file(data, size);
    Ovr::ScanProject project;
    std::vector<Ovr::VardexLib::TrajectoryNode> nodes;
    std::vector<std::string> warnings;
    if (Ovr::Formats::readTrajectoryFile(file.path(), &project, nodes, warnings)) {
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
