// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/Title.h"

#include <filesystem>

#include <fmt/format.h>

#include "picture/Axis.h"
#include "report/NumberText.h"

namespace ScanHost {

namespace {

std::string countsText(std::uint64_t points, const Scene& scene) {
    const std::string text = groupedCount(points, "point", "points");
    return scene.size() > 1 ? fmt::format("{} · {} scans", text, scene.size()) : text;
}

/// The coordinate system that all scans share; empty when there is none.
std::string systemText(const Scene& scene) {
    std::string name;
    for (const SceneScan& scan : scene) {
        const std::string own = coordinateSystemOf(scan.scan->source.file).name;
        if (&scan != &scene.front() && own != name) {
            return {};
        }
        name = own;
    }
    return printable(name);
}

}  // namespace

std::string kindText(PictureKind kind) {
    switch (kind) {
        case PictureKind::Plan:
            return "plan, seen from above";
        case PictureKind::Side:
            return "side, seen from the east";
        case PictureKind::Front:
            return "front, seen from the south";
        case PictureKind::Panorama:
            return "panorama of a stance";
        case PictureKind::Times:
            return "points over time";
        default:
            return "path over time";
    }
}

std::string filesText(const std::vector<std::string>& files) {
    std::string text = std::filesystem::path(files.front()).filename().string();
    if (files.size() == 2) {
        text += " and " + std::filesystem::path(files.back()).filename().string();
    } else if (files.size() > 2) {
        text += fmt::format(" and {} more files", files.size() - 1);
    }
    return printable(text);
}

std::string factsText(PictureKind kind, std::uint64_t points, const Scene& scene) {
    const std::string system = systemText(scene);
    return fmt::format("{} · {} · {}", kindText(kind), countsText(points, scene),
                       system.empty() ? "coordinate system not known" : system);
}

}  // namespace ScanHost
