// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/GridAngles.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "session/PointSummary.h"

namespace ScanHost {

namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;

/// The line through values at numbers 0, 1, 2 and so on; those that are not a number are left out.
/// @return empty when the values do not lie on one to within a step
std::optional<AngleSteps> lineThrough(const std::vector<double>& values) {
    double count = 0.0;
    double sumX = 0.0;
    double sumY = 0.0;
    double sumXX = 0.0;
    double sumXY = 0.0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!std::isnan(values[i])) {
            const auto x = static_cast<double>(i);
            count += 1.0;
            sumX += x;
            sumY += values[i];
            sumXX += x * x;
            sumXY += x * values[i];
        }
    }
    const double spread = count * sumXX - sumX * sumX;
    if (!(spread > 0.0)) {
        return std::nullopt;
    }
    AngleSteps line;
    line.step = (count * sumXY - sumX * sumY) / spread;
    line.first = (sumY - line.step * sumX) / count;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double expected = line.first + static_cast<double>(i) * line.step;
        if (std::abs(values[i] - expected) > std::abs(line.step)) {
            return std::nullopt;
        }
    }
    return line;
}

/// Takes whole turns out of the steps between angles that follow each other [deg].
void unwind(std::vector<double>& angles) {
    constexpr double kTurn = 360.0;
    double last = std::numeric_limits<double>::quiet_NaN();
    for (double& angle : angles) {
        if (!std::isnan(last) && !std::isnan(angle)) {
            angle -= kTurn * std::round((angle - last) / kTurn);
        }
        last = std::isnan(angle) ? last : angle;
    }
}

struct Direction {
    double x = 0.0;
    double y = 0.0;
    double elevation = 0.0;
    double count = 0.0;
};

void add(const Hx::PointSet::ScanPt& point, Direction& column, Direction& row) {
    const double length = std::hypot(point.x, point.y, point.z);
    if (length > 0.0) {
        // What lies near the zenith says little of the horizontal angle, and weighs little.
        column.x += point.x / length;
        column.y += point.y / length;
        row.elevation += std::asin(point.z / length) * kDegrees;
        row.count += 1.0;
    }
}

}  // namespace

GridOrientation orientationOf(const Hx::PointSet& points) {
    const int rows = points.getNumRows();
    const int cols = points.getNumCols();
    double upward = 0.0;
    double leftward = 0.0;
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < cols; ++col) {
            const auto& point = points.getScanPt(row, col);
            const double length = std::hypot(point.x, point.y, point.z);
            if (!isReturn(points, point)) {
                continue;
            }
            upward += (2.0 * row - (rows - 1)) * (point.z / length);
            const auto& next = points.getScanPt(row, (col + 1) % cols);
            const double turn =
                static_cast<double>(point.x) * next.y - static_cast<double>(point.y) * next.x;
            leftward += turn > 0.0 ? 1.0 : turn < 0.0 ? -1.0 : 0.0;
        }
    }
    return {upward > 0.0, leftward > 0.0};
}

std::optional<GridAngles> anglesOf(const Hx::PointSet& points, const GridOrientation& orientation) {
    const int rows = points.getNumRows();
    const int cols = points.getNumCols();
    std::vector<Direction> columns(static_cast<std::size_t>(cols));
    std::vector<Direction> lines(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < cols; ++col) {
            const auto& point = points.getScanPt(row, col);
            if (isReturn(points, point)) {
                add(point,
                    columns[static_cast<std::size_t>(orientation.mirrored ? cols - 1 - col : col)],
                    lines[static_cast<std::size_t>(orientation.upsideDown ? rows - 1 - row : row)]);
            }
        }
    }
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    std::vector<double> azimuths;
    azimuths.reserve(columns.size());
    for (const Direction& column : columns) {
        const bool known = std::hypot(column.x, column.y) > 0.0;
        azimuths.push_back(known ? std::atan2(-column.y, column.x) * kDegrees : kNone);
    }
    std::vector<double> elevations;
    elevations.reserve(lines.size());
    for (const Direction& line : lines) {
        elevations.push_back(line.count > 0.0 ? line.elevation / line.count : kNone);
    }
    unwind(azimuths);
    const auto across = lineThrough(azimuths);
    const auto down = lineThrough(elevations);
    if (!across || !down || !(across->step > 0.0) || !(down->step < 0.0)) {
        return std::nullopt;
    }
    return GridAngles{*across, *down};
}

}  // namespace ScanHost
