// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/Box.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "Ovr/Remarks.h"
#include "kit/InputFile.h"
#include "las/LasHeader.h"

#include "report/NumberText.h"
#include "session/LasFile.h"
#include "session/NodePose.h"
#include "session/Require.h"

namespace ScanHost {

namespace {

/// Hand-held scanners see up to some hundred metres far.
constexpr double kFar = 1000.0;  // [m]

Box boundsOf(const std::vector<Ovr::VardexLib::TrajectoryNode>& nodes,
             const Tq_1_1::Mat4d<double>& toWorld) {
    Box box;
    for (const Ovr::VardexLib::TrajectoryNode& node : nodes) {
        const Tq_1_1::Vec3d<double> position = toWorld.transform(positionOf(node));
        for (std::size_t axis = 0; axis < 3; ++axis) {
            box[axis].add(position[axis]);
        }
    }
    return box;
}

}  // namespace

double gapBetween(const Box& a, const Box& b) {
    double squares = 0.0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (a[axis].isEmpty() || b[axis].isEmpty()) {
            return 0.0;
        }
        const double gap = std::max({0.0, a[axis].low - b[axis].high, b[axis].low - a[axis].high});
        squares += gap * gap;
    }
    return std::sqrt(squares);
}

Box headerBounds(const ImportedScan& scan) {
    Ovr::Formats::InputFile file;
    Ovr::Formats::LasHeader header;
    Ovr::Remarks remarks;
    Box box;
    if (!isLas(scan.source)) {
        return box;
    }
    requireOk(file.open(scan.source.file));
    requireOk(readLasHeader(file, header, remarks, scan.source.lenient));
    // Writers that do not know the bounds leave zeros.
    const bool isLeftOut = header.minimum == header.maximum;
    for (std::size_t axis = 0; axis < 3 && !isLeftOut; ++axis) {
        box[axis] = {header.minimum[axis], header.maximum[axis]};
    }
    return box;
}

void remarkOnFarPath(const ImportedScan& scan, const Box& points,
                     const std::vector<Ovr::VardexLib::TrajectoryNode>& nodes, Console& console) {
    const Ovr::Formats::CrsUnit& unit = scan.units.horizontal;
    const double gap = gapBetween(points, boundsOf(nodes, scan.toWorld()));
    const double metres = unit.isAngle || unit.factor == 0.0 ? gap : gap * unit.factor;
    if (metres > kFar) {
        console.warn(fmt::format(
            "{}: the trajectory lies {} km from the points: do the two belong together?",
            scan.source.file.string(), fixedText(metres / 1000.0, 1)));
    }
}

}  // namespace ScanHost
