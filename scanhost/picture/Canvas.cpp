// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/Canvas.h"

#include <cmath>
#include <numbers>

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>
#include <fmt/format.h>

#include "report/Failure.h"

namespace ScanHost {

namespace {

// A picture of 1600 pixels is as wide as a page of A4 held across.
constexpr double kPdfPointsPerPixel = 0.5;
constexpr const char* kFont = "DejaVu Sans";

cairo_status_t writeBytes(void* closure, const unsigned char* bytes, unsigned int length) {
    auto& out = *static_cast<std::ostream*>(closure);
    out.write(reinterpret_cast<const char*>(bytes), length);
    return out ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

cairo_surface_t* makeSurface(PictureFormat format, std::ostream& out, double width, double height) {
    switch (format) {
        case PictureFormat::Svg: {
            cairo_surface_t* surface =
                cairo_svg_surface_create_for_stream(writeBytes, &out, width, height);
            cairo_svg_surface_set_document_unit(surface, CAIRO_SVG_UNIT_PX);
            return surface;
        }
        case PictureFormat::Pdf:
            return cairo_pdf_surface_create_for_stream(writeBytes, &out, width * kPdfPointsPerPixel,
                                                       height * kPdfPointsPerPixel);
        default:
            return cairo_image_surface_create(CAIRO_FORMAT_RGB24,
                                              static_cast<int>(std::lround(width)),
                                              static_cast<int>(std::lround(height)));
    }
}

void selectFont(cairo_t* context, double size, bool bold) {
    cairo_select_font_face(context, kFont, CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context, size);
}

double advanceOf(cairo_t* context, const std::string& text) {
    cairo_text_extents_t extents;
    cairo_text_extents(context, text.c_str(), &extents);
    return extents.x_advance;
}

}  // namespace

Image::Image(int columns, int rows, const Rgb& color)
    : width(columns),
      height(rows),
      pixels(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), pack(color)) {}

struct Canvas::Cairo {
    explicit Cairo(cairo_surface_t* target)
        : surface(target, &cairo_surface_destroy), context(cairo_create(target), &cairo_destroy) {}

    std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> surface;
    std::unique_ptr<cairo_t, void (*)(cairo_t*)> context;
};

Canvas::Canvas(PictureFormat format, std::ostream& out, double width, double height)
    : format_(format),
      out_(out),
      width_(width),
      height_(height),
      cairo_(std::make_unique<Cairo>(makeSurface(format, out, width, height))) {
    if (format == PictureFormat::Pdf) {
        cairo_scale(cairo_->context.get(), kPdfPointsPerPixel, kPdfPointsPerPixel);
    }
    cairo_set_line_join(cairo_->context.get(), CAIRO_LINE_JOIN_ROUND);
    fill({0.0, 0.0, width, height}, kWhite);
}

Canvas::~Canvas() = default;

void Canvas::setColor(const Rgb& color, double opacity) {
    constexpr double kFull = 255.0;
    cairo_set_source_rgba(cairo_->context.get(), color[0] / kFull, color[1] / kFull,
                          color[2] / kFull, opacity);
}

void Canvas::trace(const std::vector<Spot>& spots) {
    for (const Spot& spot : spots) {
        cairo_line_to(cairo_->context.get(), spot.x, spot.y);
    }
}

void Canvas::fill(const Box& box, const Rgb& color, double opacity) {
    setColor(color, opacity);
    cairo_rectangle(cairo_->context.get(), box.x, box.y, box.width, box.height);
    cairo_fill(cairo_->context.get());
}

void Canvas::fill(const std::vector<Spot>& outline, const Rgb& color) {
    setColor(color);
    trace(outline);
    cairo_close_path(cairo_->context.get());
    cairo_fill(cairo_->context.get());
}

void Canvas::frame(const Box& box, const Rgb& color, double lineWidth) {
    setColor(color);
    cairo_set_line_width(cairo_->context.get(), lineWidth);
    cairo_rectangle(cairo_->context.get(), box.x, box.y, box.width, box.height);
    cairo_stroke(cairo_->context.get());
}

void Canvas::line(const std::vector<Spot>& spots, const Rgb& color, double lineWidth) {
    setColor(color);
    cairo_set_line_width(cairo_->context.get(), lineWidth);
    trace(spots);
    cairo_stroke(cairo_->context.get());
}

void Canvas::disc(const Spot& center, double radius, const Rgb& color, const Rgb& border,
                  double borderWidth) {
    cairo_new_path(cairo_->context.get());
    cairo_arc(cairo_->context.get(), center.x, center.y, radius, 0.0, 2.0 * std::numbers::pi);
    setColor(color);
    cairo_fill_preserve(cairo_->context.get());
    setColor(border);
    cairo_set_line_width(cairo_->context.get(), borderWidth);
    cairo_stroke(cairo_->context.get());
}

void Canvas::gradient(const Box& box, Palette palette) {
    const std::unique_ptr<cairo_pattern_t, void (*)(cairo_pattern_t*)> pattern(
        cairo_pattern_create_linear(0.0, box.bottom(), 0.0, box.y), &cairo_pattern_destroy);
    const std::array<Rgb, kPaletteStops>& stops = paletteStops(palette);
    constexpr double kFull = 255.0;
    for (std::size_t i = 0; i < stops.size(); ++i) {
        cairo_pattern_add_color_stop_rgb(
            pattern.get(), static_cast<double>(i) / (kPaletteStops - 1), stops[i][0] / kFull,
            stops[i][1] / kFull, stops[i][2] / kFull);
    }
    cairo_set_source(cairo_->context.get(), pattern.get());
    cairo_rectangle(cairo_->context.get(), box.x, box.y, box.width, box.height);
    cairo_fill(cairo_->context.get());
}

void Canvas::hatch(const Box& box, const Rgb& color, double spacing) {
    const Clip clip(*this, box);
    fill(box, kWhite);
    for (double x = box.x - box.height; x < box.right(); x += spacing) {
        line({{x, box.bottom()}, {x + box.height, box.y}}, color, 1.0);
    }
}

void Canvas::text(const Spot& spot, const std::string& text, const TextStyle& style) {
    selectFont(cairo_->context.get(), style.size, style.bold);
    const double width = advanceOf(cairo_->context.get(), text);
    const double before = style.align == Align::Left     ? 0.0
                          : style.align == Align::Middle ? 0.5 * width
                                                         : width;
    setColor(style.color);
    cairo_save(cairo_->context.get());
    cairo_translate(cairo_->context.get(), spot.x, spot.y);
    cairo_rotate(cairo_->context.get(), style.turn);
    cairo_move_to(cairo_->context.get(), -before, 0.0);
    cairo_show_text(cairo_->context.get(), text.c_str());
    cairo_restore(cairo_->context.get());
    cairo_new_path(cairo_->context.get());
}

void Canvas::image(const Box& box, const Image& image) {
    const int stride = cairo_format_stride_for_width(CAIRO_FORMAT_RGB24, image.width);
    // cairo reads the pixels alone, but its parameter is not const.
    auto* pixels = reinterpret_cast<unsigned char*>(
        const_cast<std::uint32_t*>(image.pixels.data()));  // NOLINT
    const std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> source(
        cairo_image_surface_create_for_data(pixels, CAIRO_FORMAT_RGB24, image.width, image.height,
                                            stride),
        &cairo_surface_destroy);
    cairo_save(cairo_->context.get());
    cairo_translate(cairo_->context.get(), box.x, box.y);
    cairo_scale(cairo_->context.get(), box.width / image.width, box.height / image.height);
    cairo_set_source_surface(cairo_->context.get(), source.get(), 0.0, 0.0);
    cairo_pattern_set_filter(cairo_get_source(cairo_->context.get()), CAIRO_FILTER_NEAREST);
    cairo_rectangle(cairo_->context.get(), 0.0, 0.0, image.width, image.height);
    cairo_fill(cairo_->context.get());
    cairo_restore(cairo_->context.get());
    // A format that keeps what was drawn until the end would read the pixels after they are gone.
    cairo_surface_flush(source.get());
    cairo_surface_finish(source.get());
}

Canvas::Clip::Clip(Canvas& canvas, const Box& box) : canvas_(canvas) {
    cairo_t* const context = canvas_.cairo_->context.get();
    cairo_save(context);
    cairo_rectangle(context, box.x, box.y, box.width, box.height);
    cairo_clip(context);
}

Canvas::Clip::~Clip() {
    cairo_restore(canvas_.cairo_->context.get());
}

void Canvas::setTitle(const std::string& title) {
    if (format_ == PictureFormat::Pdf) {
        cairo_pdf_surface_set_metadata(cairo_->surface.get(), CAIRO_PDF_METADATA_TITLE,
                                       title.c_str());
    }
}

void Canvas::finish(const std::filesystem::path& file) {
    cairo_status_t status = cairo_status(cairo_->context.get());
    if (status == CAIRO_STATUS_SUCCESS && format_ == PictureFormat::Png) {
        status = cairo_surface_write_to_png_stream(cairo_->surface.get(), writeBytes, &out_);
    } else if (status == CAIRO_STATUS_SUCCESS) {
        cairo_surface_finish(cairo_->surface.get());
        status = cairo_surface_status(cairo_->surface.get());
    }
    if (status != CAIRO_STATUS_SUCCESS && status != CAIRO_STATUS_WRITE_ERROR) {
        throw Failure(fmt::format("{}: the picture cannot be made: {}", file.string(),
                                  cairo_status_to_string(status)));
    }
}

double textWidth(const std::string& text, double size, bool bold) {
    using Surface = std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)>;
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1),
                          &cairo_surface_destroy);
    const std::unique_ptr<cairo_t, void (*)(cairo_t*)> context(cairo_create(surface.get()),
                                                               &cairo_destroy);
    selectFont(context.get(), size, bold);
    return advanceOf(context.get(), text);
}

std::string fittingText(const std::string& text, double size, double room, bool bold) {
    if (textWidth(text, size, bold) <= room) {
        return text;
    }
    const auto isStart = [&text](std::size_t i) {
        return i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U;
    };
    for (std::size_t kept = text.size() / 2; kept > 0; --kept) {
        std::size_t head = kept;
        std::size_t tail = text.size() - kept;
        for (; head > 0 && !isStart(head); --head) {
        }
        for (; tail < text.size() && !isStart(tail); ++tail) {
        }
        std::string shorter = text.substr(0, head) + "…" + text.substr(tail);
        if (textWidth(shorter, size, bold) <= room) {
            return shorter;
        }
    }
    return "…";
}

}  // namespace ScanHost
