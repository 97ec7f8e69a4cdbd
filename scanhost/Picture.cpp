// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "scanhost/Picture.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <png.h>

#include "scanhost/Failure.h"

namespace ScanHost {

Picture::Picture(std::size_t width, std::size_t height, const Rgb& background)
    : width_(width), height_(height), pixels_(width * height, background) {}

void Picture::set(std::int64_t x, std::int64_t y, const Rgb& color) {
    if (x >= 0 && y >= 0 && static_cast<std::size_t>(x) < width_ &&
        static_cast<std::size_t>(y) < height_) {
        pixels_[static_cast<std::size_t>(y) * width_ + static_cast<std::size_t>(x)] = color;
    }
}

void Picture::line(std::int64_t x0, std::int64_t y0, std::int64_t x1, std::int64_t y1,
                   const Rgb& color) {
    const std::int64_t steps = std::max(std::abs(x1 - x0), std::abs(y1 - y0));
    for (std::int64_t i = 0; i <= steps; ++i) {
        const double part = steps == 0 ? 0.0 : static_cast<double>(i) / static_cast<double>(steps);
        set(x0 + std::llround(part * static_cast<double>(x1 - x0)),
            y0 + std::llround(part * static_cast<double>(y1 - y0)), color);
    }
}

void Picture::fill(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height,
                   const Rgb& color) {
    for (std::int64_t row = y; row < y + height; ++row) {
        for (std::int64_t col = x; col < x + width; ++col) {
            set(col, row, color);
        }
    }
}

std::string Picture::png() const {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width_);
    image.height = static_cast<png_uint_32>(height_);
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = 0;
    std::string bytes;
    if (png_image_write_to_memory(&image, nullptr, &size, 0, pixels_.data(), 0, nullptr) != 0) {
        bytes.resize(size);
        if (png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels_.data(), 0, nullptr) !=
            0) {
            bytes.resize(size);
            return bytes;
        }
    }
    throw Failure(std::string("the picture cannot be made: ") + image.message);
}

}  // namespace ScanHost
