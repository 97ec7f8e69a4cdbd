// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "picture/Canvas.h"
#include "picture/Labels.h"
#include "picture/MapFrame.h"
#include "picture/Scene.h"

namespace ScanHost {

/// How paths are coloured: by time since their first nodes.
struct PathColors {
    Palette palette = Palette::Path;
    Range<double> range;  ///< [s]; empty without a path
};

/// Draws the paths of all scans, coloured by time on a white border.
void drawPaths(Canvas& canvas, const Scene& scene, const MapFrame& frame, const PathColors& colors,
               double fontSize);

/// Marks starts and ends of paths, and stances with their headings, and names them. A name
/// that finds no room is left out.
void drawMarks(Canvas& canvas, const Scene& scene, const MapFrame& frame, LabelPlacer& labels,
               double fontSize);

/// An arrow that points up, for the direction in which y grows.
void drawNorthArrow(Canvas& canvas, const Spot& top, double height, double fontSize);

/// A bar of a round length, and the length.
/// @param pixel  world length of a pixel
/// @param most   length of the bar at most [pixels]
void drawScaleBar(Canvas& canvas, const Spot& left, double pixel, double most,
                  const std::string& unit, double fontSize);

}  // namespace ScanHost
