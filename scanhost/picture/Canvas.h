// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "picture/Geometry.h"
#include "picture/Palette.h"

namespace ScanHost {

enum class PictureFormat { Png, Svg, Pdf };

/// Opaque pixels, row by row from the top.
struct Image {
    int width = 0;                      ///< 1 or more
    int height = 0;                     ///< 1 or more
    std::vector<std::uint32_t> pixels;  ///< blue in the lowest byte, then green and red

    Image(int columns, int rows, const Rgb& color);
    static std::uint32_t pack(const Rgb& color) {
        return 0xFF000000U | static_cast<std::uint32_t>(color[0]) << 16U |
               static_cast<std::uint32_t>(color[1]) << 8U | color[2];
    }
    std::uint32_t& at(int column, int row) {
        return pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(column)];
    }
};

enum class Align { Left, Middle, Right };

struct TextStyle {
    double size = 16.0;  ///< [pixels]
    Rgb color = kInk;
    Align align = Align::Left;  ///< where the place lies in the text
    bool bold = false;
    double turn = 0.0;  ///< clockwise [rad]
};

/// A picture that is being drawn. Lengths are pixels, in SVG and PDF too. What does not fit into
/// the picture is cut off; a place that is not finite must not be given.
class Canvas {
  public:
    /// White paper.
    /// @param out  gets the file's bytes; outlives this
    Canvas(PictureFormat format, std::ostream& out, double width, double height);
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas();

    double width() const { return width_; }
    double height() const { return height_; }

    /// @param opacity  0 is clear, 1 covers what is below
    void fill(const Box& box, const Rgb& color, double opacity = 1.0);
    void fill(const std::vector<Spot>& outline, const Rgb& color);
    void frame(const Box& box, const Rgb& color, double lineWidth);
    void line(const std::vector<Spot>& spots, const Rgb& color, double lineWidth);
    /// A disc with a border.
    void disc(const Spot& center, double radius, const Rgb& color, const Rgb& border,
              double borderWidth);
    /// Colours of a palette, lowest value at the bottom.
    void gradient(const Box& box, Palette palette);
    /// Slanted lines on white.
    void hatch(const Box& box, const Rgb& color, double spacing);
    /// @param spot  on the base line
    void text(const Spot& spot, const std::string& text, const TextStyle& style);
    /// Draws an image over a box, without smoothing.
    void image(const Box& box, const Image& image);

    /// Cuts off what lies outside of a box, while it lives.
    class Clip {
      public:
        /// @param canvas  outlives this
        Clip(Canvas& canvas, const Box& box);
        Clip(const Clip&) = delete;
        Clip& operator=(const Clip&) = delete;
        ~Clip();

      private:
        Canvas& canvas_;
    };

    /// What programs that show a PDF say of it; other formats have no room for it.
    void setTitle(const std::string& title);
    /// Brings the picture into its stream. Throws a Failure that names the file when it cannot be
    /// made. A stream that takes no bytes shows in its own state alone.
    void finish(const std::filesystem::path& file);

  private:
    struct Cairo;

    void setColor(const Rgb& color, double opacity = 1.0);
    void trace(const std::vector<Spot>& spots);

    PictureFormat format_;
    std::ostream& out_;
    double width_;
    double height_;
    std::unique_ptr<Cairo> cairo_;
};

/// Width of a text [pixels].
double textWidth(const std::string& text, double size, bool bold = false);
/// The text, with an ellipsis for its middle when it is wider than there is room.
std::string fittingText(const std::string& text, double size, double room, bool bold = false);

}  // namespace ScanHost
