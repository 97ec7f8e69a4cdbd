// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/PointPlacer.h"

#include <fmt/format.h>

#include <limits>

namespace Ovr::Formats {

Tq_1_1::Vec3d<double> originOf(const ScanSource& source) {
    return source.project ? source.project->chooseOrigin({}) : Tq_1_1::Vec3d<double>();
}

ErrorPtr PointPlacer::place(const TextLine& line, const Tq_1_1::Vec3d<double>& position,
                            Tq_1_1::Vec3d<float>& placed) {
    if (ErrorPtr error = checkCoordinates(line, position)) {
        return error;
    }
    placed = place(position);
    return nullptr;
}

void PointPlacer::report(Remarks& remarks, const std::string& file,
                         const std::array<double, 3>& resolution, std::string_view origin,
                         std::string_view unit) const {
    constexpr std::string_view kAxes = "xyz";
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const auto largest = static_cast<float>(largest_[axis]);
        const float spacing =
            std::nextafter(largest, std::numeric_limits<float>::infinity()) - largest;
        if (spacing > resolution[axis]) {
            remarks.warn(
                fmt::format("{}: the resolution of {:.3g}{} in {} is lost: single precision keeps "
                            "steps of {:.3g}{} at up to {:.6g}{} from {}",
                            file, resolution[axis], unit, kAxes[axis], double{spacing}, unit,
                            double{largest}, unit, origin));
        }
    }
}

ErrorPtr checkCoordinates(const TextLine& line, const Tq_1_1::Vec3d<double>& position) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (std::abs(position[axis]) > kLargestCoordinate) {
            return line.fault(Interfaces::ErrorCode::InvalidValue,
                              fmt::format("the coordinate {:.9g}", position[axis]),
                              fmt::format("coordinates within {:.9g} m", kLargestCoordinate));
        }
    }
    return nullptr;
}

}  // namespace Ovr::Formats
