// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ScanHost {

/// Red, green and blue, 0 to 255.
using Rgb = std::array<std::uint8_t, 3>;

/// A picture of coloured pixels; (0, 0) is the upper left one, rows lie one after the other.
class Picture {
  public:
    /// @param width  and @p height are in pixels
    Picture(std::size_t width, std::size_t height, const Rgb& background);

    std::size_t width() const { return width_; }
    std::size_t height() const { return height_; }

    /// Requires: the pixel lies in the picture.
    const Rgb& pixel(std::size_t x, std::size_t y) const { return pixels_[y * width_ + x]; }
    /// Pixels outside the picture are dropped.
    void set(std::int64_t x, std::int64_t y, const Rgb& color);
    /// A straight line, both ends included, as far as it lies in the picture. Ends may lie
    /// anywhere. A line whose length is not finite is dropped.
    void line(double x0, double y0, double x1, double y1, const Rgb& color);
    /// A filled rectangle of @p width x @p height pixels from (x, y) on.
    void fill(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height,
              const Rgb& color);

    /// The picture as the bytes of a PNG file. Throws a Failure when that fails.
    std::string png() const;

  private:
    std::size_t width_;
    std::size_t height_;
    std::vector<Rgb> pixels_;
};

}  // namespace ScanHost
