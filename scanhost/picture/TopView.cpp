// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include <fmt/format.h>

#include "mobile/CorvinMobilePointSet.h"
#include "picture/PointColor.h"
#include "picture/ScanPictures.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/MobileScan.h"

namespace ScanHost {

namespace {

constexpr double kLongestSide = 1200.0;  // pixels
constexpr std::int64_t kMargin = 24;     // pixels
constexpr Rgb kBackground{255, 255, 255};
constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kRed{220, 20, 20};

/// The smallest of 1, 2 or 5 times a power of ten that is not below a value.
double roundUp(double value) {
    const double power = std::pow(10.0, std::floor(std::log10(value)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= value) {
            return factor * power;
        }
    }
    return 10.0 * power;
}

/// A length of one digit, written out.
std::string lengthText(double length, const ScanUnits& units) {
    const double digits = std::ceil(-std::log10(length) - 0.001);
    return fmt::format("{} {}", fixedText(length, static_cast<int>(std::clamp(digits, 0.0, 12.0))),
                       units.label(0));
}

/// From the world to the cells that points are gathered in, and from there to pixels.
struct Frame {
    double left;
    double top;
    double cell;        ///< [m]
    std::int64_t zoom;  ///< pixels along a side of a cell
    std::size_t cols;
    std::size_t rows;

    std::size_t index(const Tq_1_1::Vec3d<double>& world) const {
        const auto col = static_cast<std::size_t>((world.x - left) / cell);
        const auto row = static_cast<std::size_t>((top - world.y) / cell);
        return row * cols + col;
    }
    /// In pixels, also outside the picture.
    double x(double world) const { return kMargin + pixels((world - left) / cell); }
    double y(double world) const { return kMargin + pixels((top - world) / cell); }
    std::int64_t width() const { return static_cast<std::int64_t>(cols) * zoom + 2 * kMargin; }
    std::int64_t height() const { return static_cast<std::int64_t>(rows) * zoom + 2 * kMargin; }

  private:
    double pixels(double cells) const { return std::floor(cells * static_cast<double>(zoom)); }
};

/// Cells as small as the picture allows, but large enough for a few points each: a thin scan would
/// be a dust of single pixels.
Frame frameOf(const std::vector<PointSummary>& summaries) {
    constexpr double kPointsPerCell = 2.5;
    constexpr double kFewestCells = 100.0;
    Range<double> x;
    Range<double> y;
    std::uint64_t returns = 0;
    for (const PointSummary& summary : summaries) {
        returns += summary.returns;
        if (summary.returns > 0) {
            x.add(summary.bounds[0].low);
            x.add(summary.bounds[0].high);
            y.add(summary.bounds[1].low);
            y.add(summary.bounds[1].high);
        }
    }
    if (returns == 0) {
        throw Failure("there is nothing to draw: no point has a return");
    }
    const double longest = std::max({x.high - x.low, y.high - y.low, 0.1});
    const double area = (x.high - x.low) * (y.high - y.low);
    const double thin = std::sqrt(area * kPointsPerCell / static_cast<double>(returns));
    const double cell =
        roundUp(std::max(longest / kLongestSide, std::min(thin, longest / kFewestCells)));
    const auto cells = [cell](const Range<double>& range) {
        return static_cast<std::size_t>((range.high - range.low) / cell) + 1;
    };
    const auto zoom = static_cast<std::int64_t>(kLongestSide * cell / longest);
    return {x.low, y.high, cell, std::max<std::int64_t>(1, zoom), cells(x), cells(y)};
}

/// What falls on the cells.
class Accumulator {
  public:
    explicit Accumulator(const Frame& frame)
        : frame_(frame), sums_(frame.cols * frame.rows), counts_(frame.cols * frame.rows) {}

    void add(const Tq_1_1::Vec3d<double>& world, const Rgb& color) {
        const std::size_t index = frame_.index(world);
        ++counts_[index];
        for (std::size_t i = 0; i < color.size(); ++i) {
            sums_[index][i] += color[i];
        }
    }

    void paint(Picture& picture) const {
        const auto most = *std::max_element(counts_.begin(), counts_.end());
        for (std::size_t index = 0; index < counts_.size(); ++index) {
            if (counts_[index] > 0) {
                const auto col = static_cast<std::int64_t>(index % frame_.cols);
                const auto row = static_cast<std::int64_t>(index / frame_.cols);
                picture.fill(kMargin + col * frame_.zoom, kMargin + row * frame_.zoom, frame_.zoom,
                             frame_.zoom, blend(index, most));
            }
        }
    }

  private:
    /// Mean colour on the background. A single point is seen; many show in full.
    Rgb blend(std::size_t index, std::uint32_t most) const {
        constexpr double kFaintest = 0.35;
        const double share = std::log(1.0 + counts_[index]) / std::log(1.0 + most);
        const double weight = kFaintest + (1.0 - kFaintest) * share;
        Rgb color{};
        for (std::size_t i = 0; i < color.size(); ++i) {
            const double mean = static_cast<double>(sums_[index][i]) / counts_[index];
            color[i] = static_cast<std::uint8_t>(
                std::lround(weight * mean + (1.0 - weight) * kBackground[i]));
        }
        return color;
    }

    Frame frame_;
    std::vector<std::array<std::uint64_t, 3>> sums_;
    std::vector<std::uint32_t> counts_;
};

void drawWalk(const ImportedScan& scan, const Frame& frame, Picture& picture) {
    const auto mobile = std::dynamic_pointer_cast<Vardex::CorvinMobilePointSet>(scan.pointSet);
    if (!mobile || !scan.units.fitTrajectory()) {
        return;
    }
    Ovr::VardexLib::CorvinMobileScanData::SharedTrajectory nodes;
    if (mobile->getMobileScanData().fetchTrajectory(nodes)) {
        return;  // the report of the scan has a warning that says why
    }
    const Tq_1_1::Mat4d<double> toWorld = scan.toWorld();
    for (std::size_t i = 1; i < nodes->size(); ++i) {
        const Tq_1_1::Vec3d<double> from = toWorld.transform(positionOf((*nodes)[i - 1]));
        const Tq_1_1::Vec3d<double> to = toWorld.transform(positionOf((*nodes)[i]));
        picture.line(frame.x(from.x), frame.y(from.y), frame.x(to.x), frame.y(to.y), kRed);
    }
}

void drawStance(const ImportedScan& scan, const Frame& frame, Picture& picture) {
    if (MobileScan::isMobile(scan)) {
        return;
    }
    constexpr double kArm = 8.0;  // pixels
    const Tq_1_1::Mat4d<double> toWorld = scan.toWorld();
    const double x = frame.x(toWorld(0, 3));
    const double y = frame.y(toWorld(1, 3));
    for (const double thick : {-1.0, 0.0, 1.0}) {
        picture.line(x - kArm, y + thick, x + kArm, y + thick, kRed);
        picture.line(x + thick, y - kArm, x + thick, y + kArm, kRed);
    }
}

/// @return length of the bar [m]
double drawScale(const Frame& frame, Picture& picture) {
    const double bar = roundUp(frame.cell * static_cast<double>(frame.cols) / 12.0);
    const auto length = static_cast<std::int64_t>(frame.x(frame.left + bar)) - kMargin;
    picture.fill(kMargin, frame.height() - kMargin / 2, length, 4, kBlack);
    return bar;
}

}  // namespace

Picture topView(const std::vector<ImportedScan>& scans, std::string& legend) {
    std::vector<PointSummary> summaries;
    summaries.reserve(scans.size());
    for (const ImportedScan& scan : scans) {
        summaries.push_back(summarize(*scan.pointSet, scan.toWorld()));
    }
    const Frame frame = frameOf(summaries);
    Accumulator cells(frame);
    for (std::size_t i = 0; i < scans.size(); ++i) {
        const Hx::PointSet& points = *scans[i].pointSet;
        const PointColor colorOf(points, summaries[i]);
        const Tq_1_1::Mat4d<double> toWorld = scans[i].toWorld();
        for (std::uint64_t index = 0; index < summaries[i].cells; ++index) {
            const Hx::PointSet::ScanPt& point = points.getScanPt(index);
            if (isReturn(points, point)) {
                cells.add(toWorld.transform(positionOf(point)), colorOf(index));
            }
        }
    }
    Picture picture(static_cast<std::size_t>(frame.width()),
                    static_cast<std::size_t>(frame.height()), kBackground);
    cells.paint(picture);
    for (const ImportedScan& scan : scans) {
        drawWalk(scan, frame, picture);
        drawStance(scan, frame, picture);
    }
    const ScanUnits units = scans.empty() ? ScanUnits() : scans.front().units;
    const double bar = drawScale(frame, picture);
    legend = fmt::format("top view in cells of {}, {} pixels each, bar {}",
                         lengthText(frame.cell, units), frame.zoom, lengthText(bar, units));
    return picture;
}

}  // namespace ScanHost
