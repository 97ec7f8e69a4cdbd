// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/Picture.h"

#include <algorithm>
#include <cmath>

#include <png.h>

#include "report/Failure.h"

namespace ScanHost {

namespace {

/// Narrows the part of a line, from 0 to 1, to where one coordinate lies between -1 and an end.
/// @return false when nothing is left
bool clip(double start, double way, double end, double& from, double& to) {
    if (way == 0.0) {
        return start >= -1.0 && start <= end;
    }
    const double one = (-1.0 - start) / way;
    const double other = (end - start) / way;
    from = std::max(from, std::min(one, other));
    to = std::min(to, std::max(one, other));
    return from <= to;
}

}  // namespace

Picture::Picture(std::size_t width, std::size_t height, const Rgb& background)
    : width_(width), height_(height), pixels_(width * height, background) {}

void Picture::set(std::int64_t x, std::int64_t y, const Rgb& color) {
    if (x >= 0 && y >= 0 && static_cast<std::size_t>(x) < width_ &&
        static_cast<std::size_t>(y) < height_) {
        pixels_[static_cast<std::size_t>(y) * width_ + static_cast<std::size_t>(x)] = color;
    }
}

void Picture::line(double x0, double y0, double x1, double y1, const Rgb& color) {
    const double dx = x1 - x0;
    const double dy = y1 - y0;
    double from = 0.0;
    double to = 1.0;
    if (!std::isfinite(dx) || !std::isfinite(dy) ||
        !clip(x0, dx, static_cast<double>(width_), from, to) ||
        !clip(y0, dy, static_cast<double>(height_), from, to)) {
        return;
    }
    const double left = x0 + from * dx;
    const double top = y0 + from * dy;
    const double across = (to - from) * dx;
    const double down = (to - from) * dy;
    const double steps = std::ceil(std::max(std::abs(across), std::abs(down)));
    for (double i = 0.0; i <= steps; ++i) {
        const double part = steps == 0.0 ? 0.0 : i / steps;
        set(std::llround(left + part * across), std::llround(top + part * down), color);
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
