// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include "picture/Canvas.h"
#include "picture/PixelField.h"

namespace ScanHost {

/// How large a point is drawn, so that the points of a surface touch each other: the side of the
/// squares most of which are hit twice when they are hit at all. A few dense walls do not decide
/// it.
/// @return [pixels], 1 or more; bounded by a part of the picture
int splatSize(const PixelField& field);

/// Which of the points whose discs cover a pixel is seen there.
enum class SplatOrder {
    NearestFirst,  ///< the one whose middle is nearest
    LargestFirst   ///< the one with the largest value
};

/// Paints a field: each point is a disc. A pixel is
/// darker where more points fall than usual, and paler where fewer do: a wall, seen edgewise,
/// stands out from floor and ceiling.
/// @param size     of a point [pixels]
/// @param colorOf  called for cells that have points
Image paintField(const PixelField& field, int size, SplatOrder order,
                 const std::function<Rgb(const PixelField::Cell&)>& colorOf);

}  // namespace ScanHost
