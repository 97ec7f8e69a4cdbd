// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "picture/Geometry.h"
#include "picture/PictureRequest.h"
#include "picture/Scene.h"
#include "session/PointSummary.h"

namespace ScanHost {

/// Which world axes a view shows: 0 is x, 1 is y, 2 is z.
struct ViewAxes {
    std::size_t across;  ///< grows to the right
    std::size_t up;      ///< grows upwards
};

/// Plan: from above. Front: from the south. Side: from the east.
ViewAxes viewAxes(PictureKind kind);

/// Which part of the world a view shows.
struct MapBounds {
    Range<double> across;
    Range<double> up;
    std::uint64_t returns = 0;   ///< all of the scans, also those outside
    std::size_t farStances = 0;  ///< that stand far away from their points

    void add(const MapBounds& other);
};

/// Where the points of a scan lie in a view, without the few that are far away from all others.
/// Walks over all points. Empty when none has a return.
/// @param likely  see likelyBounds
MapBounds boundsOfPoints(const SceneScan& scan, const ViewAxes& axes,
                         const std::array<Range<double>, 3>& likely);
/// Where the path of a scan lies; empty without one.
MapBounds boundsOfPath(const SceneScan& scan, const ViewAxes& axes);
/// Adds the place of a scan's stance to the bounds of its points, unless it is far away from them:
/// then the pose and the points do not belong together.
void addStance(const SceneScan& scan, const ViewAxes& axes, MapBounds& points);

/// One coordinate of points, straight from their records: in the world, or in a picture.
struct PointAxis {
    double x;
    double y;
    double z;
    double zero;

    /// The world's axis.
    PointAxis(const Tq_1_1::Mat4d<double>& toWorld, std::size_t axis)
        : x(toWorld(axis, 0)), y(toWorld(axis, 1)), z(toWorld(axis, 2)), zero(toWorld(axis, 3)) {}
    /// A picture's axis, along that of the world.
    PointAxis(const Tq_1_1::Mat4d<double>& toWorld, std::size_t axis, const Scale& scale)
        : PointAxis(toWorld, axis) {
        const double factor = (scale.end - scale.start) / (scale.high - scale.low);
        x *= factor;
        y *= factor;
        z *= factor;
        zero = factor * (zero - scale.low) + scale.start;
    }

    double operator()(const Hx::PointSet::ScanPt& point) const {
        return x * point.x + y * point.y + z * point.z + zero;
    }
};

/// How the world lies in a picture.
struct MapFrame {
    ViewAxes axes{};
    Scale across;
    Scale up;
    double exaggeration = 1.0;  ///< heights are drawn so many times larger

    Box plot() const {
        return {across.start, up.end, across.end - across.start, up.start - up.end};
    }
    Spot spot(const Tq_1_1::Vec3d<double>& world) const {
        return {across(world[axes.across]), up(world[axes.up])};
    }
    /// The same part of the world at another place of the picture.
    MapFrame moved(double right, double down) const;
    /// World length of a pixel along the picture's lower edge.
    double pixel() const { return (across.high - across.low) / (across.end - across.start); }
};

/// What a plot may be like.
struct PlotRoom {
    double width;  ///< [pixels]
    double least;  ///< height at least [pixels]
    double most;   ///< height at most [pixels]
};

/// Fits a part of the world into a plot, with a margin around it. Both directions have one scale.
/// Only heights that would be too flat to be seen are exaggerated by a round factor.
/// @param oneUnit  whether both axes have the same one; else heights fill the plot
MapFrame fitFrame(const MapBounds& bounds, PictureKind kind, bool oneUnit, const PlotRoom& room);

}  // namespace ScanHost
