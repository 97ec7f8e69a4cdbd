// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "picture/Axis.h"
#include "picture/Canvas.h"
#include "picture/Geometry.h"

namespace ScanHost {

/// An axis of a plot: its scale, the numbers at it and what they are.
struct PlotAxis {
    Scale scale;
    Ticks ticks;
    std::string title;  ///< with its unit
    double turn = 0.0;  ///< numbers are written modulo this; 0: as they are
    bool hasNumbers = true;
};

/// Room for the widest number of an axis [pixels].
double numbersWidth(const Ticks& ticks, double fontSize);

/// As many ticks as there is room for their numbers side by side.
Ticks fittingTicks(double low, double high, double width, double fontSize);

/// What goes through a plot where ticks meet.
enum class PlotGrid { None, Lines, Crosses };

/// Draws a frame with ticks on all four sides and numbers below and on the left.
void drawPlotFrame(Canvas& canvas, const PlotAxis& across, const PlotAxis& up, double fontSize,
                   PlotGrid grid);

/// A bar with a palette's colours, numbers and a title above it.
/// @param box  of all of it
void drawColorBar(Canvas& canvas, const Box& box, Palette palette, double low, double high,
                  const std::string& title, double fontSize);

}  // namespace ScanHost
