// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/PointColors.h"

#include <algorithm>

#include <fmt/format.h>

#include "report/Failure.h"
#include "session/Interrupt.h"
#include "session/PointTimes.h"

namespace ScanHost {

namespace {

// Of points without a time; all times are 0 or more.
constexpr float kNoTime = -1.0F;

/// What is shown when nothing was asked for.
/// @param last  for points without colour and reflection
ColorBy defaultColor(const Scene& scene, const std::vector<PointSample>& samples, ColorBy last) {
    if (scene.size() > 1) {
        return ColorBy::Scan;
    }
    const PointSample& sample = samples.front();
    const auto reflects = [](const PointSample::Point& point) { return point.reflection > 0; };
    if (sample.hasColor) {
        return ColorBy::Own;
    }
    return std::any_of(sample.points.begin(), sample.points.end(), reflects) ? ColorBy::Reflection
                                                                             : last;
}

template <typename Value>
Range<double> rangeOf(const std::vector<PointSample>& samples, Value value) {
    std::vector<double> values;
    for (const PointSample& sample : samples) {
        for (const PointSample::Point& point : sample.points) {
            values.push_back(value(point));
        }
    }
    Range<double> range = commonRange(std::move(values));
    // A palette needs two ends, and so do the numbers next to it.
    if (!range.isEmpty() && range.high - range.low < 1e-6) {
        range = {range.low - 0.5, range.high + 0.5};
    }
    return range;
}

void requireColor(const std::vector<PointSample>& samples) {
    if (std::none_of(samples.begin(), samples.end(),
                     [](const PointSample& sample) { return sample.hasColor; })) {
        throw Failure("--color rgb: the points have no colour");
    }
}

void requireTimes(const Scene& scene) {
    if (std::none_of(scene.begin(), scene.end(),
                     [](const SceneScan& scan) { return scan.hasTimes; })) {
        throw Failure("--color time: the points have no times");
    }
}

/// Calls @p add with the cell, index, record and world position of every point in the plot.
template <typename Add>
std::uint64_t project(const SceneScan& scan, const MapFrame& frame, PixelField& field, Add add) {
    const Hx::PointSet& points = scan.points();
    const std::uint64_t cells = points.getNumPoints();
    constexpr std::uint64_t kCheckEvery = 1U << 20U;
    std::uint64_t outside = 0;
    for (std::uint64_t index = 0; index < cells; ++index) {
        const Hx::PointSet::ScanPt& point = points.getScanPt(index);
        if (!isReturn(points, point)) {
            continue;
        }
        const Tq_1_1::Vec3d<double> world = scan.toWorld.transform(positionOf(point));
        const Spot spot = frame.spot(world);
        if (PixelField::Cell* const cell = field.find(spot.x, spot.y)) {
            add(*cell, index, point, world);
        } else {
            ++outside;
        }
        if (index % kCheckEvery == 0) {
            Interrupt::check();
        }
    }
    return outside;
}

using Cell = PixelField::Cell;
using Point = Hx::PointSet::ScanPt;
using World = Tq_1_1::Vec3d<double>;

void addColor(Cell& cell, std::uint64_t /*index*/, const Point& point, const World& /*world*/) {
    const bool known = point.hasColor();
    PixelField::addToMean(cell, known ? point.color[0] : kUnknown[0],
                          known ? point.color[1] : kUnknown[1],
                          known ? point.color[2] : kUnknown[2]);
}

std::uint64_t projectScan(const SceneScan& scan, const MapFrame& frame, ColorBy by, double lowest,
                          PixelField& field) {
    switch (by) {
        case ColorBy::Own:
            return project(scan, frame, field, addColor);
        case ColorBy::Reflection:
            return project(scan, frame, field,
                           [&scan](Cell& cell, std::uint64_t index, const Point&, const World&) {
                               PixelField::addToMean(cell, scan.points().getReflection(index));
                           });
        case ColorBy::Time:
            return project(scan, frame, field,
                           [&scan](Cell& cell, std::uint64_t index, const Point&, const World&) {
                               PixelField::addToLargest(
                                   cell, scan.hasTimes
                                             ? static_cast<float>(timeAt(*scan.mobile, index))
                                             : kNoTime);
                           });
        case ColorBy::Scan:
            return project(scan, frame, field,
                           [](Cell& cell, std::uint64_t, const Point&, const World&) {
                               ++cell.values[0];
                               ++cell.count;
                           });
        default:
            return project(scan, frame, field,
                           [lowest](Cell& cell, std::uint64_t, const Point&, const World& world) {
                               // Single precision keeps a height, not a sea level's distance.
                               PixelField::addToLargest(cell, static_cast<float>(world.z - lowest));
                           });
    }
}

}  // namespace

PointColors choosePointColors(const PictureRequest& request, const Scene& scene,
                              const std::vector<PointSample>& samples) {
    const ScanUnits& units = scene.front().scan->units;
    PointColors colors;
    colors.by = request.color;
    if (colors.by == ColorBy::Automatic) {
        colors.by =
            defaultColor(scene, samples,
                         request.kind == PictureKind::Panorama ? ColorBy::Range : ColorBy::Height);
    }
    switch (colors.by) {
        case ColorBy::Own:
            requireColor(samples);
            break;
        case ColorBy::Reflection:
            colors.range =
                rangeOf(samples, [](const PointSample::Point& point) { return point.reflection; });
            colors.title = "reflection";
            break;
        case ColorBy::Height:
            colors.range =
                rangeOf(samples, [](const PointSample::Point& point) { return point.world.z; });
            colors.title = fmt::format("height [{}]", units.label(2));
            break;
        case ColorBy::Range:
            colors.range =
                rangeOf(samples, [](const PointSample::Point& point) { return point.range; });
            colors.title = fmt::format("range [{}]", units.label(0));
            break;
        case ColorBy::Time:
            requireTimes(scene);
            colors.range =
                rangeOf(samples, [](const PointSample::Point& point) { return point.seconds; });
            colors.title = "point time [s]";
            break;
        default:
            colors.title = "scans";
    }
    return colors;
}

std::uint64_t projectPoints(const Scene& scene, const MapFrame& frame, const PointColors& colors,
                            PixelField& field) {
    std::uint64_t outside = 0;
    for (std::size_t i = 0; i < scene.size(); ++i) {
        outside += projectScan(scene[i], frame, colors.by, colors.range.low, field);
        if (colors.by == ColorBy::Scan) {
            field.keepMost(static_cast<float>(i));
        }
    }
    return outside;
}

Rgb cellColor(const PixelField::Cell& cell, const PointColors& colors) {
    const auto channel = [&cell](std::size_t i) {
        return static_cast<std::uint8_t>(PixelField::mean(cell, i) + 0.5F);
    };
    switch (colors.by) {
        case ColorBy::Own:
            return {channel(0), channel(1), channel(2)};
        case ColorBy::Reflection:
            return colors.colorOf(PixelField::mean(cell, 0));
        case ColorBy::Scan:
            return categoryColor(static_cast<std::size_t>(cell.values[2]));
        case ColorBy::Time:
            return cell.values[0] == kNoTime ? kUnknown : colors.colorOf(cell.values[0]);
        default:
            return colors.colorOf(colors.range.low + cell.values[0]);
    }
}

}  // namespace ScanHost
