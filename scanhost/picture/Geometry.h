// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace ScanHost {

/// A place in a picture, in pixels from its upper left corner, y down.
struct Spot {
    double x = 0.0;
    double y = 0.0;
};

/// A rectangle in a picture, in pixels.
struct Box {
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;

    double right() const { return x + width; }
    double bottom() const { return y + height; }
    bool overlaps(const Box& other) const {
        return x < other.right() && other.x < right() && y < other.bottom() && other.y < bottom();
    }
    bool holds(const Box& other) const {
        return x <= other.x && y <= other.y && other.right() <= right() &&
               other.bottom() <= bottom();
    }
};

/// One axis of a plot: values from low to high lie between two places of the picture.
struct Scale {
    double low = 0.0;
    double high = 1.0;
    double start = 0.0;  ///< where low lies [pixels]
    double end = 1.0;    ///< where high lies [pixels]; before the start where values rise upwards

    double operator()(double value) const {
        return start + (value - low) / (high - low) * (end - start);
    }
};

}  // namespace ScanHost
