// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/PointColors.h"

#include <algorithm>
#include <cmath>

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

/// What one point adds to a pixel.
struct Hit {
    std::size_t cell;
    std::array<float, 3> values;
};

/// Puts the points of a scan into a field. Finding places and writing to them take turns, and each
/// place is fetched early: points may be anywhere, and waiting for memory would take most of the
/// time.
/// @param valuesOf  gives the numbers of a point, by its index and record
/// @param add       adds them to a cell
/// @return how many points lie outside
template <typename ValuesOf, typename Add>
std::uint64_t project(const SceneScan& scan, const MapFrame& frame, PixelField& field,
                      ValuesOf valuesOf, Add add) {
    constexpr std::uint64_t kBatch = 512;
    constexpr std::uint64_t kCheckEvery = kBatch << 11U;
    const Hx::PointSet& points = scan.points();
    const std::uint64_t cells = points.getNumPoints();
    const PointAxis across(scan.toWorld, frame.axes.across, frame.across);
    const PointAxis up(scan.toWorld, frame.axes.up, frame.up);
    std::vector<Hit> hits(kBatch);
    std::uint64_t outside = 0;
    for (std::uint64_t first = 0; first < cells; first += kBatch) {
        std::size_t count = 0;
        for (std::uint64_t index = first; index < std::min(cells, first + kBatch); ++index) {
            const Hx::PointSet::ScanPt& point = points.getScanPt(index);
            if (!isReturn(points, point)) {
                continue;
            }
            if (const auto cell = field.find(across(point), up(point))) {
                __builtin_prefetch(&field.cell(*cell), 1);
                hits[count++] = {*cell, valuesOf(index, point)};
            } else {
                ++outside;
            }
        }
        for (std::size_t i = 0; i < count; ++i) {
            add(field.cell(hits[i].cell), hits[i].values);
        }
        if (first % kCheckEvery == 0) {
            Interrupt::check();
        }
    }
    return outside;
}

using Cell = PixelField::Cell;
using Point = Hx::PointSet::ScanPt;
using Values = std::array<float, 3>;

Values colorOf(std::uint64_t /*index*/, const Point& point) {
    const bool known = point.hasColor();
    return {static_cast<float>(known ? point.color[0] : kUnknown[0]),
            static_cast<float>(known ? point.color[1] : kUnknown[1]),
            static_cast<float>(known ? point.color[2] : kUnknown[2])};
}

void addToScan(Cell& cell, const Values& /*values*/) {
    ++cell.values[0];
    ++cell.count;
}

/// @param lowest  height that counts as 0: single precision keeps what is above it
std::uint64_t projectScan(const SceneScan& scan, const MapFrame& frame, ColorBy by, double lowest,
                          PixelField& field) {
    const auto reflectionOf = [&points = scan.points()](std::uint64_t index, const Point&) {
        return Values{static_cast<float>(points.getReflection(index))};
    };
    const auto timeOf = [&scan](std::uint64_t index, const Point&) {
        return Values{scan.hasTimes ? static_cast<float>(timeAt(*scan.mobile, index)) : kNoTime};
    };
    const auto heightOf = [&scan, lowest](std::uint64_t, const Point& point) {
        return Values{static_cast<float>(scan.toWorld.transform(positionOf(point)).z - lowest)};
    };
    switch (by) {
        case ColorBy::Own:
            return project(scan, frame, field, colorOf, PixelField::addToMean);
        case ColorBy::Reflection:
            return project(scan, frame, field, reflectionOf, PixelField::addToMean);
        case ColorBy::Time:
            return project(scan, frame, field, timeOf, PixelField::addToLargest);
        case ColorBy::Scan:
            return project(
                scan, frame, field, [](std::uint64_t, const Point&) { return Values{}; },
                addToScan);
        default:
            return project(scan, frame, field, heightOf, PixelField::addToLargest);
    }
}

void setRange(const std::vector<PointSample>& samples, const ScanUnits& units,
              PointColors& colors) {
    using Sampled = PointSample::Point;
    switch (colors.by) {
        case ColorBy::Reflection:
            colors.range = rangeOf(samples, [](const Sampled& point) { return point.reflection; });
            colors.title = "reflection";
            break;
        case ColorBy::Height:
            colors.range = rangeOf(samples, [](const Sampled& point) { return point.world.z; });
            colors.title = fmt::format("height [{}]", units.label(2));
            break;
        case ColorBy::Range:
            colors.range = rangeOf(samples, [](const Sampled& point) { return point.range; });
            colors.title = fmt::format("range [{}]", units.label(0));
            break;
        case ColorBy::Time:
            colors.range = rangeOf(samples, [](const Sampled& point) { return point.seconds; });
            colors.title = "point time [s]";
            break;
        default:
            break;
    }
}

}  // namespace

PointColors choosePointColors(const PictureRequest& request, const Scene& scene,
                              const std::vector<PointSample>& samples) {
    PointColors colors;
    colors.by = request.color;
    if (colors.by == ColorBy::Automatic) {
        colors.by =
            defaultColor(scene, samples,
                         request.kind == PictureKind::Panorama ? ColorBy::Range : ColorBy::Height);
    }
    if (colors.by == ColorBy::Own) {
        requireColor(samples);
    }
    if (colors.by == ColorBy::Time) {
        requireTimes(scene);
    }
    setRange(samples, scene.front().scan->units, colors);
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
        return static_cast<std::uint8_t>(std::lround(PixelField::mean(cell, i)));
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
