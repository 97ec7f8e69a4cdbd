// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/TimesPicture.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <fmt/format.h>

#include "picture/ChartNotes.h"
#include "picture/PlotFrame.h"
#include "picture/TimeHistogram.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/PointTimes.h"

namespace ScanHost {

namespace {

/// The plot of one scan.
struct TimesPlot {
    std::string name;
    PlotAxis across;
    PlotAxis up;
    double step = 1.0;   ///< width of a bar [s]
    double first = 0.0;  ///< where the first bar begins [s]
    std::vector<std::uint64_t> counts;
    std::vector<TimeHistogram::Gap> gaps;
};

TimeHistogram histogramOf(const SceneScan& scan) {
    Range<double> range;
    forEachPointTime(*scan.mobile, [&](double seconds) { range.add(seconds); });
    if (!(range.low < range.high)) {
        // All points have one time: it is in the middle.
        range = range.isEmpty() ? Range<double>{0.0, 1.0}
                                : Range<double>{range.low - 0.5, range.low + 0.5};
    }
    TimeHistogram histogram(range);
    forEachPointTime(*scan.mobile, [&](double seconds) { histogram.add(seconds); });
    return histogram;
}

TimesPlot plotOf(const SceneScan& scan, const TimeHistogram& histogram, const Box& box,
                 double font) {
    constexpr double kMostBars = 300.0;
    constexpr double kHeadroom = 1.06;
    TimesPlot plot;
    plot.name = scan.name;
    const Range<double>& range = histogram.range();
    plot.step = roundAbove((range.high - range.low) / kMostBars);
    plot.first = std::floor(range.low / plot.step) * plot.step;
    plot.counts = histogram.counts(plot.step);
    plot.gaps = histogram.gaps();
    const double end = plot.first + static_cast<double>(plot.counts.size()) * plot.step;
    const auto most =
        static_cast<double>(*std::max_element(plot.counts.begin(), plot.counts.end()));
    plot.across = {{plot.first, end, box.x, box.right()}, {}, "scan time [s]"};
    plot.across.ticks = ticksBetween(plot.first, end, static_cast<int>(box.width / (6.0 * font)));
    plot.up = {{0.0, std::max(1.0, kHeadroom * most / plot.step), box.bottom(), box.y},
               {},
               fmt::format("{}: points per second, in bars of {} s", plot.name,
                           fixedText(plot.step, digitsOf(plot.step)))};
    plot.up.ticks = ticksBetween(0.0, plot.up.scale.high,
                                 std::max(2, static_cast<int>(box.height / (3.0 * font))));
    return plot;
}

void drawTimes(Canvas& canvas, const TimesPlot& plot, const Rgb& color, double font) {
    const double bottom = plot.up.scale.start;
    for (const TimeHistogram::Gap& gap : plot.gaps) {
        const double x = plot.across.scale(gap.from);
        canvas.hatch({x, plot.up.scale.end, std::max(1.0, plot.across.scale(gap.to) - x),
                      bottom - plot.up.scale.end},
                     kFaint, 8.0);
    }
    drawPlotFrame(canvas, plot.across, plot.up, font, PlotGrid::None);
    for (std::size_t i = 0; i < plot.counts.size(); ++i) {
        if (plot.counts[i] > 0) {
            const double from = plot.first + static_cast<double>(i) * plot.step;
            const double x = plot.across.scale(from);
            const double top = plot.up.scale(static_cast<double>(plot.counts[i]) / plot.step);
            canvas.fill(Box{x, top, plot.across.scale(from + plot.step) - x - 0.5, bottom - top},
                        color);
        }
    }
}

std::string gapsText(const TimesPlot& plot) {
    if (plot.gaps.empty()) {
        return fmt::format("{}: no gap.", plot.name);
    }
    const auto longest = *std::max_element(
        plot.gaps.begin(), plot.gaps.end(),
        [](const auto& a, const auto& b) { return a.to - a.from < b.to - b.from; });
    return fmt::format("{}: {}, hatched; the longest from {} s to {} s.", plot.name,
                       groupedCount(plot.gaps.size(), "gap", "gaps"), fixedText(longest.from, 2),
                       fixedText(longest.to, 2));
}

}  // namespace

Sheet timesSheet(const Scene& scene, const PictureRequest& request) {
    constexpr double kPlotHeight = 16.0;  // in sizes of letters
    constexpr double kPlotStep = 23.0;
    const SheetSizes sizes(request.width);
    const double left = 7.0 * sizes.font;
    const auto plots = std::make_shared<std::vector<TimesPlot>>();
    Sheet sheet;
    std::uint64_t points = 0;
    double y = sizes.top;
    for (const SceneScan& scan : scene) {
        if (!scan.hasTimes || scan.mobile->getNumPoints() == 0) {
            continue;
        }
        const TimeHistogram histogram = histogramOf(scan);
        points += histogram.count();
        const Box box{left, y, sizes.width - left - 3.0 * sizes.font, kPlotHeight * sizes.font};
        plots->push_back(plotOf(scan, histogram, box, sizes.font));
        sheet.notes.push_back(gapsText(plots->back()));
        addClockNote(scan, sheet.notes);
        y += kPlotStep * sizes.font;
    }
    if (plots->empty()) {
        throw Failure("--times: the points have no times");
    }
    sheet.title.facts = "points over time · " + groupedCount(points, "point", "points");
    sheet.width = sizes.width;
    sheet.height = std::ceil(y - 2.0 * sizes.font + notesHeight(sheet.notes, sizes));
    sheet.draw = [plots, sizes](Canvas& canvas) {
        for (std::size_t i = 0; i < plots->size(); ++i) {
            drawTimes(canvas, (*plots)[i], categoryColor(i), sizes.font);
        }
    };
    return sheet;
}

}  // namespace ScanHost
