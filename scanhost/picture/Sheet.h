// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "picture/Canvas.h"
#include "session/OutputRules.h"

namespace ScanHost {

/// Sizes that follow from the width of a picture.
struct SheetSizes {
    double width;
    double font;    ///< size of letters [pixels]
    double top;     ///< height of the title above the plots
    double column;  ///< width of the column of legends on the right

    explicit SheetSizes(double pixels);
};

/// What stands above a picture.
struct SheetTitle {
    std::string what;   ///< the files
    std::string facts;  ///< the kind of picture, counts, coordinate system
};

/// A picture that is ready to be drawn.
struct Sheet {
    SheetTitle title;
    double width = 0.0;
    double height = 0.0;
    std::vector<std::string> notes;  ///< stand below it
    std::function<void(Canvas& canvas)> draw;
};

/// The endings of pictures' names: PNG, SVG, PDF.
std::vector<std::string> pictureEndings();

/// Height of the notes below a picture [pixels].
double notesHeight(const std::vector<std::string>& notes, const SheetSizes& sizes);

/// Draws a picture into a file, which appears whole or not at all. A name without an ending is that
/// of a PNG. Throws a Failure when that fails or when the rules forbid it.
void writeSheet(const Sheet& sheet, const std::filesystem::path& file, const OutputRules& rules);

}  // namespace ScanHost
