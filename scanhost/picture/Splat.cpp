// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/Splat.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace ScanHost {

namespace {

constexpr std::uint32_t kNothing = std::numeric_limits<std::uint32_t>::max();

/// Of the squares of a size that are hit, the part that is hit more than once.
double partHitTwice(const PixelField& field, int size) {
    std::vector<std::uint8_t> hits(static_cast<std::size_t>((field.cols() + size - 1) / size));
    std::size_t once = 0;
    std::size_t twice = 0;
    const PixelField::Cell* cell = field.cells().data();
    for (int row = 0; row < field.rows(); ++row) {
        for (int col = 0; col < field.cols(); ++col, ++cell) {
            std::uint8_t& hit = hits[static_cast<std::size_t>(col / size)];
            hit = static_cast<std::uint8_t>(std::min<std::uint32_t>(hit + cell->count, 2));
        }
        if ((row + 1) % size == 0 || row + 1 == field.rows()) {
            once += static_cast<std::size_t>(std::count(hits.begin(), hits.end(), 1));
            twice += static_cast<std::size_t>(std::count(hits.begin(), hits.end(), 2));
            hits.assign(hits.size(), 0);
        }
    }
    return static_cast<double>(twice) / static_cast<double>(std::max<std::size_t>(1, once + twice));
}

/// How many points fall on each square of a size.
class SquareCounts {
  public:
    SquareCounts(const PixelField& field, int size)
        : size_(size), cols_((field.cols() + size - 1) / size) {
        counts_.resize(static_cast<std::size_t>(cols_) *
                       static_cast<std::size_t>((field.rows() + size - 1) / size));
        const PixelField::Cell* cell = field.cells().data();
        for (int row = 0; row < field.rows(); ++row) {
            for (int col = 0; col < field.cols(); ++col, ++cell) {
                counts_[index(col, row)] += cell->count;
            }
        }
    }
    /// How large the points of a pixel are to be drawn: smaller where there are many, so that a
    /// dense wall does not grow with the points of a thin floor.
    int sizeAt(int col, int row) const {
        constexpr double kPointsPerSquare = 3.0;
        const double part = std::sqrt(kPointsPerSquare / counts_[index(col, row)]);
        return std::clamp(static_cast<int>(size_ * part), std::min(size_, 2), size_);
    }

  private:
    std::size_t index(int col, int row) const {
        return static_cast<std::size_t>(row / size_) * static_cast<std::size_t>(cols_) +
               static_cast<std::size_t>(col / size_);
    }

    int size_;
    int cols_;
    std::vector<std::uint32_t> counts_;
};

/// A pixel's points after each was spread to a disc.
struct Spread {
    std::uint32_t density = 0;         ///< points, all of them spread to one size
    std::uint32_t nearest = kNothing;  ///< index of the cell whose points are nearest
    std::uint32_t away = kNothing;     ///< square of its distance
};

/// Spreads the points of the cell in a column and row.
/// @param size  for the density, and @p own for what is painted [pixels]
void spread(const PixelField& field, int size, int own, int column, int row,
            std::vector<Spread>& pixels) {
    const auto at = [&field](int x, int y) {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(field.cols()) +
               static_cast<std::size_t>(x);
    };
    const std::size_t source = at(column, row);
    const int before = (size - 1) / 2;
    const auto squareOf = [](int side) { return static_cast<std::uint32_t>(side * side); };
    for (int y = std::max(0, row - before); y < std::min(field.rows(), row - before + size); ++y) {
        for (int x = std::max(0, column - before);
             x < std::min(field.cols(), column - before + size); ++x) {
            // From the middle of a disc that may lie between two pixels, in half pixels.
            const int even = size % 2 == 0 ? 1 : 0;
            const std::uint32_t away =
                squareOf(2 * (x - column) - even) + squareOf(2 * (y - row) - even);
            if (away > squareOf(size)) {
                continue;
            }
            Spread& pixel = pixels[at(x, y)];
            pixel.density += field.cells()[source].count;
            if ((away <= squareOf(own) || (x == column && y == row)) && away < pixel.away) {
                pixel.away = away;
                pixel.nearest = static_cast<std::uint32_t>(source);
            }
        }
    }
}

std::vector<Spread> spreadAll(const PixelField& field, int size) {
    const SquareCounts squares(field, size);
    std::vector<Spread> pixels(field.cells().size());
    const PixelField::Cell* cell = field.cells().data();
    for (int row = 0; row < field.rows(); ++row) {
        for (int col = 0; col < field.cols(); ++col, ++cell) {
            if (cell->count > 0) {
                spread(field, size, squares.sizeAt(col, row), col, row, pixels);
            }
        }
    }
    return pixels;
}

/// @param tone  how many times more points than usual, as a logarithm
Rgb toned(const Rgb& color, double tone) {
    constexpr double kDarkest = 0.5;
    constexpr double kPalest = 0.45;
    const double full = std::log(10.0);  // what is ten times the usual, or a tenth, counts as that
    const double part = std::clamp(tone / full, -1.0, 1.0);
    if (part >= 0.0) {
        return shaded(color, 1.0 - (1.0 - kDarkest) * part);
    }
    Rgb paler{};
    for (std::size_t i = 0; i < paler.size(); ++i) {
        paler[i] = static_cast<std::uint8_t>(
            std::lround(color[i] - kPalest * part * (kWhite[i] - color[i])));
    }
    return paler;
}

/// Of the pixels that have points.
double usualDensity(const std::vector<Spread>& pixels) {
    std::vector<std::uint32_t> densities;
    // Every third one tells as much.
    for (std::size_t i = 0; i < pixels.size(); i += 3) {
        if (pixels[i].nearest != kNothing) {
            densities.push_back(pixels[i].density);
        }
    }
    if (densities.empty()) {
        return 1.0;
    }
    const auto middle = densities.begin() + static_cast<std::ptrdiff_t>(densities.size() / 2);
    std::nth_element(densities.begin(), middle, densities.end());
    return *middle;
}

}  // namespace

int splatSize(const PixelField& field) {
    // Of points that fall evenly on a surface, five of six squares are hit then.
    constexpr double kEnoughHitTwice = 0.65;
    constexpr int kLargestPart = 120;  // of the picture's width
    const int largest = std::max(4, std::max(field.cols(), field.rows()) / kLargestPart);
    int size = 1;
    while (size < largest && partHitTwice(field, size) < kEnoughHitTwice) {
        size += size < 4 ? 1 : size / 3;
    }
    return std::min(size, largest);
}

Image paintField(const PixelField& field, int size,
                 const std::function<Rgb(const PixelField::Cell&)>& colorOf) {
    Image image(field.cols(), field.rows(), kWhite);
    const std::vector<Spread> pixels = spreadAll(field, size);
    const double usual = usualDensity(pixels);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        if (pixels[i].nearest != kNothing) {
            const Rgb color = colorOf(field.cells()[pixels[i].nearest]);
            image.pixels[i] = Image::pack(toned(color, std::log(pixels[i].density / usual)));
        }
    }
    return image;
}

}  // namespace ScanHost
