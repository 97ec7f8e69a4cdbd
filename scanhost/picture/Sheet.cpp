// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/Sheet.h"

#include <algorithm>
#include <cmath>

#include "Tq/Path.h"
#include "kit/AtomicFile.h"

#include "session/Require.h"

namespace ScanHost {

namespace {

constexpr double kNoteSize = 0.88;  // of the size of letters
constexpr double kNoteLine = 1.35;

void drawText(Canvas& canvas, const Sheet& sheet) {
    const SheetSizes sizes(sheet.width);
    const double margin = sizes.font;
    const double room = sheet.width - 2.0 * margin;
    const double large = 1.4 * sizes.font;
    canvas.text({margin, 1.9 * sizes.font}, fittingText(sheet.title.what, large, room, true),
                {.size = large, .bold = true});
    canvas.text({margin, 3.6 * sizes.font}, fittingText(sheet.title.facts, sizes.font, room),
                {.size = sizes.font});
    const double small = kNoteSize * sizes.font;
    double y = sheet.height - notesHeight(sheet.notes, sizes) + 0.6 * sizes.font;
    for (const std::string& note : sheet.notes) {
        canvas.text({margin, y}, fittingText(note, small, room), {.size = small});
        y += kNoteLine * sizes.font;
    }
}

PictureFormat formatOf(const std::filesystem::path& file) {
    const std::string ending = Tq_1_1::lowerCaseExtension(file);
    return ending == "svg"   ? PictureFormat::Svg
           : ending == "pdf" ? PictureFormat::Pdf
                             : PictureFormat::Png;
}

}  // namespace

SheetSizes::SheetSizes(double pixels)
    : width(pixels),
      font(std::max(8.0, std::round(pixels / 100.0))),
      top(6.4 * font),
      column(15.0 * font) {}

std::vector<std::string> pictureEndings() {
    return {".png", ".svg", ".pdf"};
}

double notesHeight(const std::vector<std::string>& notes, const SheetSizes& sizes) {
    return (kNoteLine * static_cast<double>(notes.size()) + 0.6) * sizes.font;
}

void writeSheet(const Sheet& sheet, const std::filesystem::path& file, const OutputRules& rules) {
    rules.check({file, pictureEndings()});
    Ovr::Formats::AtomicFile output;
    requireOk(output.open(file, rules.existing()));
    Canvas canvas(formatOf(file), output.stream(), sheet.width, sheet.height);
    canvas.setTitle(sheet.title.what);
    sheet.draw(canvas);
    drawText(canvas, sheet);
    canvas.finish(file);
    requireOk(output.commit());
}

}  // namespace ScanHost
