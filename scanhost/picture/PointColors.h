// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "picture/MapFrame.h"
#include "picture/Palette.h"
#include "picture/PictureRequest.h"
#include "picture/PixelField.h"
#include "picture/PointSample.h"
#include "picture/Scene.h"

namespace ScanHost {

/// What the colours of a picture's points show.
struct PointColors {
    ColorBy by = ColorBy::Height;
    Range<double> range;  ///< between the ends of the palette; empty for colours and scans
    std::string title;    ///< what the values are, with their unit

    bool hasBar() const { return by != ColorBy::Own && by != ColorBy::Scan; }
    Rgb colorOf(double value) const {
        return paletteColor(Palette::Points, (value - range.low) / (range.high - range.low));
    }
};

/// Chooses the colours and the range of their values. Throws a Failure when the points do not have
/// what the request asks for.
PointColors choosePointColors(const PictureRequest& request, const Scene& scene,
                              const std::vector<PointSample>& samples);

/// Puts the points of all scans into a field that is as large as the frame's plot.
/// @return how many points lie outside
std::uint64_t projectPoints(const Scene& scene, const MapFrame& frame, const PointColors& colors,
                            PixelField& field);

/// The colour of a pixel that has points.
Rgb cellColor(const PixelField::Cell& cell, const PointColors& colors);

}  // namespace ScanHost
