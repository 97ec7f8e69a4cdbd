// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/MapFrame.h"

#include <algorithm>
#include <cmath>

#include "picture/Axis.h"
#include "session/Interrupt.h"
#include "session/Spread.h"

namespace ScanHost {

namespace {

void addTo(Range<double>& range, const Range<double>& other) {
    if (!other.isEmpty()) {
        range.add(other.low);
        range.add(other.high);
    }
}

/// A scale whose middle is that of a range.
Scale centered(const Range<double>& range, double size, double start, double end) {
    const double middle = 0.5 * (range.low + range.high);
    return {middle - 0.5 * size, middle + 0.5 * size, start, end};
}

// Height that a view from the side fills, as a part of the plot's width.
constexpr double kFilled = 0.25;

/// @param height  of what is shown [pixels]
double exaggerationOf(double height, const PlotRoom& room) {
    const double wanted = std::max(kFilled * room.width, 0.6 * room.least);
    return height < 0.5 * wanted ? roundBelow(wanted / height) : 1.0;
}

/// A walk over some of the points of a scan.
struct PartOfPoints {
    const Hx::PointSet& points;
    PointAxis across;
    PointAxis up;
    Range<double> likelyAcross;
    Range<double> likelyUp;
    MapBounds bounds;

    void walk(std::uint64_t begin, std::uint64_t end) {
        for (std::uint64_t index = begin; index < end; ++index) {
            const Hx::PointSet::ScanPt& point = points.getScanPt(index);
            if (!isReturn(points, point)) {
                continue;
            }
            ++bounds.returns;
            const double right = across(point);
            const double high = up(point);
            if (right >= likelyAcross.low && right <= likelyAcross.high && high >= likelyUp.low &&
                high <= likelyUp.high) {
                bounds.across.add(right);
                bounds.up.add(high);
            }
        }
    }
};

}  // namespace

ViewAxes viewAxes(PictureKind kind) {
    switch (kind) {
        case PictureKind::Front:
            return {0, 2};
        case PictureKind::Side:
            return {1, 2};
        default:
            return {0, 1};
    }
}

void MapBounds::add(const MapBounds& other) {
    addTo(across, other.across);
    addTo(up, other.up);
    returns += other.returns;
    farStances += other.farStances;
}

MapBounds boundsOfPoints(const SceneScan& scan, const ViewAxes& axes,
                         const std::array<Range<double>, 3>& likely) {
    const PartOfPoints part{scan.points(),
                            PointAxis(scan.toWorld, axes.across),
                            PointAxis(scan.toWorld, axes.up),
                            likely[axes.across],
                            likely[axes.up],
                            {}};
    MapBounds bounds;
    for (const PartOfPoints& found : spread(scan.points().getNumPoints(), part)) {
        bounds.add(found.bounds);
    }
    Interrupt::check();
    return bounds;
}

MapBounds boundsOfPath(const SceneScan& scan, const ViewAxes& axes) {
    MapBounds bounds;
    for (const PathNode& node : scan.path) {
        bounds.across.add(node.position[axes.across]);
        bounds.up.add(node.position[axes.up]);
    }
    return bounds;
}

void addStance(const SceneScan& scan, const ViewAxes& axes, MapBounds& points) {
    constexpr double kFar = 2.0;  // of the extent of the points
    if (!scan.stance || points.across.isEmpty()) {
        return;
    }
    const double across = scan.stance->position[axes.across];
    const double up = scan.stance->position[axes.up];
    const auto away = [](const Range<double>& range, double value) {
        return std::max({range.low - value, value - range.high, 0.0});
    };
    const double extent =
        std::max(points.across.high - points.across.low, points.up.high - points.up.low);
    const double farthest = std::max(away(points.across, across), away(points.up, up));
    if (extent > 0.0 && farthest > kFar * extent) {
        ++points.farStances;
        return;
    }
    points.across.add(across);
    points.up.add(up);
}

MapFrame MapFrame::moved(double right, double down) const {
    MapFrame result = *this;
    result.across.start += right;
    result.across.end += right;
    result.up.start += down;
    result.up.end += down;
    return result;
}

MapFrame fitFrame(const MapBounds& bounds, PictureKind kind, bool oneUnit, const PlotRoom& room) {
    constexpr double kMargin = 0.04;    // of the longer side, on each side
    constexpr double kSmallest = 1e-6;  // what is smaller is a single place
    constexpr double kPlace = 1.0;      // what is shown around a single place
    double across = bounds.across.high - bounds.across.low;
    const double up = bounds.up.high - bounds.up.low;
    const double longer = oneUnit ? std::max(across, up) : across;
    const double margin = longer < kSmallest ? kPlace : kMargin * longer;
    across += 2.0 * margin;
    double pixel = std::max(across / room.width, (up + 2.0 * margin) / room.most);
    double exaggeration = 1.0;
    if (!oneUnit) {
        pixel = across / room.width;
        exaggeration = up < kSmallest ? 1.0 : kFilled * room.width * pixel / up;
    } else if (kind != PictureKind::Plan && up >= kSmallest) {
        exaggeration = exaggerationOf(up / pixel, room);
    }
    // The margin has its size in pixels on both axes.
    const double height =
        std::clamp(std::round((up * exaggeration + 2.0 * margin) / pixel), room.least, room.most);
    return {viewAxes(kind), centered(bounds.across, room.width * pixel, 0.0, room.width),
            centered(bounds.up, height * pixel / exaggeration, height, 0.0), exaggeration};
}

}  // namespace ScanHost
