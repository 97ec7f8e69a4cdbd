// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "picture/Canvas.h"
#include "picture/MapFrame.h"
#include "picture/MapMarks.h"
#include "picture/PointColors.h"
#include "picture/Sheet.h"

namespace ScanHost {

/// Height of all that explains a map [pixels].
double mapLegendHeight(const Scene& scene, const ViewAxes& axes, const PointColors& colors,
                       const PathColors& paths, const SheetSizes& sizes);

/// Draws what explains a map, one below the other: the north arrow of a plan, the scans' colours or
/// the bar of the points' values, and the bar of the path's times.
/// @param column  where it stands
void drawMapLegend(Canvas& canvas, const Scene& scene, const MapFrame& frame,
                   const PointColors& colors, const PathColors& paths, const Box& column,
                   const SheetSizes& sizes);

}  // namespace ScanHost
