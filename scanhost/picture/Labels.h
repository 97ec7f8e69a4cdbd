// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "picture/Canvas.h"
#include "picture/Geometry.h"

namespace ScanHost {

/// Finds places for names next to what they name, where nothing else is written.
class LabelPlacer {
  public:
    /// @param room  where labels may lie
    explicit LabelPlacer(const Box& room) : room_(room) {}

    /// No label is put there.
    void reserve(const Box& box) { taken_.push_back(box); }
    /// Writes a name near a mark, on a white ground, where there is room.
    /// @param radius  of the mark [pixels]
    void write(Canvas& canvas, const Spot& mark, double radius, const std::string& text,
               const TextStyle& style);

  private:
    bool isFree(const Box& box) const;

    Box room_;
    std::vector<Box> taken_;
};

}  // namespace ScanHost
