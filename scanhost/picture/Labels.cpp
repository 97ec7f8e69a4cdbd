// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/Labels.h"

#include <algorithm>
#include <array>

namespace ScanHost {

namespace {

constexpr double kLineHeight = 1.25;  // of the size of letters
constexpr double kBaseLine = 0.95;    // from the upper edge, of the size of letters
constexpr double kOpacity = 0.78;

/// The box of a text around a mark.
/// @param dx  -1 is left of the mark, 0 above or below, 1 right of it; @param dy likewise, 1 below
Box boxAround(const Spot& mark, double reach, double width, double height, int dx, int dy) {
    const double x = dx < 0   ? mark.x - reach - width
                     : dx > 0 ? mark.x + reach
                              : mark.x - 0.5 * width;
    const double y = dy < 0   ? mark.y - reach - height
                     : dy > 0 ? mark.y + reach
                              : mark.y - 0.5 * height;
    return {x, y, width, height};
}

}  // namespace

bool LabelPlacer::isFree(const Box& box) const {
    return room_.holds(box) && std::none_of(taken_.begin(), taken_.end(), [&box](const Box& other) {
               return other.overlaps(box);
           });
}

void LabelPlacer::write(Canvas& canvas, const Spot& mark, double radius, const std::string& text,
                        const TextStyle& style) {
    constexpr std::array<std::array<int, 2>, 8> kDirections{
        {{1, 0}, {-1, 0}, {0, -1}, {0, 1}, {1, -1}, {1, 1}, {-1, -1}, {-1, 1}}};
    const double pad = 0.25 * style.size;
    const double width = textWidth(text, style.size, style.bold) + 2.0 * pad;
    const double height = kLineHeight * style.size;
    for (const double farther : {0.0, 1.0, 2.0}) {
        for (const std::array<int, 2>& direction : kDirections) {
            const Box box = boxAround(mark, radius + farther * style.size, width, height,
                                      direction[0], direction[1]);
            if (isFree(box)) {
                canvas.fill(box, kWhite, kOpacity);
                canvas.text({box.x + pad, box.y + kBaseLine * style.size}, text, style);
                reserve(box);
                return;
            }
        }
    }
}

}  // namespace ScanHost
