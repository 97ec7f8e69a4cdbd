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

bool isHit(const PixelField& field, int col, int row) {
    return field
               .cells()[static_cast<std::size_t>(row) * static_cast<std::size_t>(field.cols()) +
                        static_cast<std::size_t>(col)]
               .count > 0;
}

/// Of the neighbours on the right and below of pixels that are hit, the part that is hit, too.
double partOfNeighbours(const PixelField& field) {
    std::size_t all = 0;
    std::size_t hits = 0;
    for (int row = 0; row + 1 < field.rows(); ++row) {
        for (int col = 0; col + 1 < field.cols(); ++col) {
            if (isHit(field, col, row)) {
                all += 2;
                hits +=
                    (isHit(field, col + 1, row) ? 1U : 0U) + (isHit(field, col, row + 1) ? 1U : 0U);
            }
        }
    }
    return static_cast<double>(hits) / static_cast<double>(std::max<std::size_t>(1, all));
}

/// Of the squares of a size that are hit, the part that is hit in more than one pixel: points of
/// one pixel, such as those of a column on a wall, do not say that others are near.
double partHitTwice(const PixelField& field, int size) {
    std::vector<std::uint8_t> hits(static_cast<std::size_t>((field.cols() + size - 1) / size));
    std::size_t once = 0;
    std::size_t twice = 0;
    for (int row = 0; row < field.rows(); ++row) {
        for (int col = 0; col < field.cols(); ++col) {
            std::uint8_t& hit = hits[static_cast<std::size_t>(col / size)];
            hit = static_cast<std::uint8_t>(std::min(hit + (isHit(field, col, row) ? 1 : 0), 2));
        }
        if ((row + 1) % size == 0 || row + 1 == field.rows()) {
            once += static_cast<std::size_t>(std::count(hits.begin(), hits.end(), 1));
            twice += static_cast<std::size_t>(std::count(hits.begin(), hits.end(), 2));
            hits.assign(hits.size(), 0);
        }
    }
    return static_cast<double>(twice) / static_cast<double>(std::max<std::size_t>(1, once + twice));
}

/// How many pixels of each square of a size are hit.
class SquareHits {
  public:
    SquareHits(const PixelField& field, int size)
        : size_(size), cols_((field.cols() + size - 1) / size) {
        hits_.resize(static_cast<std::size_t>(cols_) *
                     static_cast<std::size_t>((field.rows() + size - 1) / size));
        const PixelField::Cell* cell = field.cells().data();
        for (int row = 0; row < field.rows(); ++row) {
            for (int col = 0; col < field.cols(); ++col, ++cell) {
                hits_[index(col, row)] += cell->count > 0 ? 1U : 0U;
            }
        }
    }
    /// How large the points of a pixel are to be drawn: smaller where they are next to each other,
    /// so that a dense wall does not become as thick as the points of a thin floor are large.
    int sizeAt(int col, int row) const {
        constexpr double kHitsOfFullSize = 4.0;
        const double part = std::sqrt(kHitsOfFullSize / hits_[index(col, row)]);
        return std::clamp(static_cast<int>(size_ * part), std::min(size_, 3), size_);
    }

  private:
    std::size_t index(int col, int row) const {
        return static_cast<std::size_t>(row / size_) * static_cast<std::size_t>(cols_) +
               static_cast<std::size_t>(col / size_);
    }

    int size_;
    int cols_;
    std::vector<std::uint32_t> hits_;
};

/// Calls @p visit with the index and the squared distance, in half pixels, of every pixel of a disc
/// around the one in a column and row.
template <typename Visit>
void forDisc(const PixelField& field, int size, int column, int row, Visit visit) {
    // The middle of a disc of an even size lies between two pixels.
    const int even = size % 2 == 0 ? 1 : 0;
    const int before = (size - 1) / 2;
    const int left = std::max(0, column - before);
    const int right = std::min(field.cols(), column - before + size);
    for (int y = std::max(0, row - before); y < std::min(field.rows(), row - before + size); ++y) {
        for (int x = left; x < right; ++x) {
            const int dx = 2 * (x - column) - even;
            const int dy = 2 * (y - row) - even;
            if (dx * dx + dy * dy <= size * size) {
                visit(static_cast<std::size_t>(y) * static_cast<std::size_t>(field.cols()) +
                          static_cast<std::size_t>(x),
                      dx * dx + dy * dy);
            }
        }
    }
}

/// A pixel after the points were spread to discs.
struct Spread {
    std::uint32_t density = 0;       ///< points, all of them spread to discs of one size
    std::uint32_t shown = kNothing;  ///< index of the cell whose points are seen
    float rank = 0.0F;               ///< by which they are
};

std::vector<Spread> spreadAll(const PixelField& field, int size, SplatOrder order) {
    const SquareHits squares(field, size);
    std::vector<Spread> pixels(field.cells().size());
    const PixelField::Cell* cell = field.cells().data();
    for (int row = 0; row < field.rows(); ++row) {
        for (int col = 0; col < field.cols(); ++col, ++cell) {
            if (cell->count == 0) {
                continue;
            }
            forDisc(field, size, col, row,
                    [&](std::size_t i, int /*away*/) { pixels[i].density += cell->count; });
            const auto source = static_cast<std::uint32_t>(cell - field.cells().data());
            forDisc(field, squares.sizeAt(col, row), col, row, [&](std::size_t i, int away) {
                const float rank =
                    order == SplatOrder::LargestFirst ? cell->values[0] : static_cast<float>(-away);
                if (pixels[i].shown == kNothing || rank > pixels[i].rank) {
                    pixels[i].shown = source;
                    pixels[i].rank = rank;
                }
            });
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
        if (pixels[i].shown != kNothing) {
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
    constexpr double kEnoughNeighbours = 0.55;
    // Of points that fall evenly on a surface, five of six squares are hit then.
    constexpr double kEnoughHitTwice = 0.65;
    constexpr int kLargestPart = 120;  // of the picture's width
    if (partOfNeighbours(field) >= kEnoughNeighbours) {
        return 1;
    }
    const int largest = std::max(4, std::max(field.cols(), field.rows()) / kLargestPart);
    int size = 2;
    while (size < largest && partHitTwice(field, size) < kEnoughHitTwice) {
        size += size < 4 ? 1 : size / 3;
    }
    return std::min(size, largest);
}

Image paintField(const PixelField& field, int size, SplatOrder order,
                 const std::function<Rgb(const PixelField::Cell&)>& colorOf) {
    Image image(field.cols(), field.rows(), kWhite);
    const std::vector<Spread> pixels = spreadAll(field, size, order);
    const double usual = usualDensity(pixels);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        if (pixels[i].shown != kNothing) {
            const Rgb color = colorOf(field.cells()[pixels[i].shown]);
            image.pixels[i] = Image::pack(toned(color, std::log(pixels[i].density / usual)));
        }
    }
    return image;
}

}  // namespace ScanHost
