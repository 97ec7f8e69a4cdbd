// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/TrajectoryCheck.h"

#include <cmath>

#include <fmt/format.h>

#include "Ovr/FormatRegistry.h"
#include "Ovr/Remarks.h"

#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Require.h"

namespace ScanHost {

namespace {

/// What a pose may lose on its way through the text, in every element of its matrix.
constexpr double kVerifyTolerance = 1e-9;

/// Largest difference between a trajectory and its copy.
struct Difference {
    double time = 0.0;      ///< [s]
    double position = 0.0;  ///< [m], along an axis
    double rotation = 0.0;  ///< element of the rotation matrix

    /// Also false when one of them is not a number.
    bool isSmall() const {
        return time <= kVerifyTolerance && position <= kVerifyTolerance &&
               rotation <= kVerifyTolerance;
    }
};

void widen(double& largest, double value) {
    largest = value > largest || std::isnan(value) ? value : largest;
}

Difference compare(const std::vector<Ovr::VardexLib::TrajectoryNode>& nodes,
                   const std::vector<Ovr::VardexLib::TrajectoryNode>& copies) {
    Difference difference;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        widen(difference.time, std::abs(nodes[i].time - copies[i].time));
        for (std::size_t value = 0; value < 15; ++value) {
            const double apart = std::abs(nodes[i].pose[value] - copies[i].pose[value]);
            widen(value < 12 ? difference.rotation : difference.position, apart);
        }
    }
    return difference;
}

}  // namespace

void requireSameTrajectory(const std::filesystem::path& file, Ovr::ScanProject* project,
                           const std::vector<Ovr::VardexLib::TrajectoryNode>& nodes,
                           const ScanUnits& units, Report& report) {
    std::vector<Ovr::VardexLib::TrajectoryNode> copies;
    Ovr::Remarks remarks;
    requireOk(Ovr::FormatRegistry::the().readTrajectory(file, project, copies, remarks));
    if (copies.size() != nodes.size()) {
        throw unexpected(file.string(), fmt::format("{} poses", copies.size()),
                         fmt::to_string(nodes.size()));
    }
    const Difference difference = compare(nodes, copies);
    Report& result = report.group("verified", "read back, largest difference");
    result.addNumber("time", "time", difference.time, 12, " s");
    result.addNumber("position", "position", difference.position, 12, units.suffix());
    result.addNumber("rotation", "rotation", difference.rotation, 12, "");
    if (!difference.isSmall()) {
        throw Failure(fmt::format(
            "{}: the poses read back differ by up to {} s, {}{} and {} in the rotation, "
            "expected at most {}",
            file.string(), shortText(difference.time), shortText(difference.position),
            units.suffix(), shortText(difference.rotation), shortText(kVerifyTolerance)));
    }
}

}  // namespace ScanHost
