// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/PlotFrame.h"

#include <algorithm>
#include <cmath>

#include "report/NumberText.h"

namespace ScanHost {

namespace {

constexpr double kTickLength = 0.4;  // of the size of letters
constexpr Rgb kGrid{226, 226, 226};

std::string numberText(const PlotAxis& axis, double value) {
    double shown = value;
    if (axis.turn > 0.0) {
        shown = std::fmod(value, axis.turn);
        shown += shown < 0.0 ? axis.turn : 0.0;
    }
    return axis.ticks.text(shown);
}

void drawGrid(Canvas& canvas, const PlotAxis& across, const PlotAxis& up) {
    for (const double value : across.ticks.values) {
        const double x = across.scale(value);
        canvas.line({{x, up.scale.start}, {x, up.scale.end}}, kGrid, 1.0);
    }
    for (const double value : up.ticks.values) {
        const double y = up.scale(value);
        canvas.line({{across.scale.start, y}, {across.scale.end, y}}, kGrid, 1.0);
    }
}

void drawCrosses(Canvas& canvas, const PlotAxis& across, const PlotAxis& up, double arm) {
    for (const double right : across.ticks.values) {
        for (const double high : up.ticks.values) {
            const Spot spot{across.scale(right), up.scale(high)};
            canvas.line({{spot.x - arm, spot.y}, {spot.x + arm, spot.y}}, kFaint, 1.0);
            canvas.line({{spot.x, spot.y - arm}, {spot.x, spot.y + arm}}, kFaint, 1.0);
        }
    }
}

}  // namespace

double numbersWidth(const Ticks& ticks, double fontSize) {
    double widest = 0.0;
    for (const double value : ticks.values) {
        widest = std::max(widest, textWidth(ticks.text(value), fontSize));
    }
    return widest;
}

Ticks fittingTicks(double low, double high, double width, double fontSize) {
    for (int most = static_cast<int>(width / (4.0 * fontSize)); most > 2; --most) {
        Ticks ticks = ticksBetween(low, high, most);
        const double each = numbersWidth(ticks, fontSize) + 2.5 * fontSize;
        if (each * static_cast<double>(ticks.values.size()) <= width) {
            return ticks;
        }
    }
    return ticksBetween(low, high, 2);
}

void drawPlotFrame(Canvas& canvas, const PlotAxis& across, const PlotAxis& up, double fontSize,
                   PlotGrid grid) {
    const double tick = kTickLength * fontSize;
    const Box plot{across.scale.start, up.scale.end, across.scale.end - across.scale.start,
                   up.scale.start - up.scale.end};
    if (grid == PlotGrid::Lines) {
        drawGrid(canvas, across, up);
    } else if (grid == PlotGrid::Crosses) {
        drawCrosses(canvas, across, up, tick);
    }
    canvas.frame(plot, kInk, 1.5);
    for (const double value : across.ticks.values) {
        const double x = across.scale(value);
        canvas.line({{x, plot.bottom()}, {x, plot.bottom() + tick}}, kInk, 1.5);
        canvas.line({{x, plot.y}, {x, plot.y - tick}}, kInk, 1.5);
        if (!across.hasNumbers) {
            continue;
        }
        canvas.text({x, plot.bottom() + tick + 1.1 * fontSize}, numberText(across, value),
                    {.size = fontSize, .align = Align::Middle});
    }
    for (const double value : up.ticks.values) {
        const double y = up.scale(value);
        canvas.line({{plot.x, y}, {plot.x - tick, y}}, kInk, 1.5);
        canvas.line({{plot.right(), y}, {plot.right() + tick, y}}, kInk, 1.5);
        canvas.text({plot.x - tick - 0.3 * fontSize, y + 0.36 * fontSize}, numberText(up, value),
                    {.size = fontSize, .align = Align::Right});
    }
    canvas.text({plot.right(), plot.bottom() + tick + 2.4 * fontSize}, across.title,
                {.size = fontSize, .align = Align::Right});
    canvas.text({plot.x, plot.y - 0.9 * fontSize}, up.title, {.size = fontSize});
}

void drawColorBar(Canvas& canvas, const Box& box, Palette palette, double low, double high,
                  const std::string& title, double fontSize) {
    const double head = 1.8 * fontSize;
    canvas.text({box.x, box.y + fontSize}, title, {.size = fontSize, .bold = true});
    const Box bar{box.x, box.y + head, 1.5 * fontSize, box.height - head};
    canvas.gradient(bar, palette);
    canvas.frame(bar, kInk, 1.0);
    const Scale scale{low, high, bar.bottom(), bar.y};
    const Ticks ticks =
        ticksBetween(low, high, std::max(2, static_cast<int>(bar.height / (1.6 * fontSize))));
    for (const double value : ticks.values) {
        const double y = scale(value);
        canvas.line({{bar.right(), y}, {bar.right() + kTickLength * fontSize, y}}, kInk, 1.5);
        canvas.text({bar.right() + 0.7 * fontSize, y + 0.36 * fontSize}, ticks.text(value),
                    {.size = fontSize});
    }
}

}  // namespace ScanHost
