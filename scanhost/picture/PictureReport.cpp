// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/PictureReport.h"

#include <fmt/format.h>

#include "report/NumberText.h"

namespace ScanHost {

void describePicture(const PictureFile& picture, Report& report) {
    report.addText("file", "file", picture.file.string());
    report.addText("shows", "shows", picture.shows);
    Json::Value size;
    size["width"] = picture.width;
    size["height"] = picture.height;
    report.add("size", "size", size,
               fmt::format("{} x {} pixels", shortText(picture.width), shortText(picture.height)));
    Json::Value notes(Json::arrayValue);
    std::string lines;
    for (const std::string& note : picture.notes) {
        notes.append(note);
        lines += (lines.empty() ? "" : " ") + note;
    }
    if (lines.empty()) {
        report.addHidden("notes", notes);
    } else {
        report.add("notes", "notes", notes, lines);
    }
}

}  // namespace ScanHost
