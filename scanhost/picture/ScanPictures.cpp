// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/ScanPictures.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "picture/MapPicture.h"
#include "picture/Panorama.h"
#include "picture/PathPicture.h"
#include "picture/PointSample.h"
#include "picture/TimesPicture.h"
#include "picture/Title.h"
#include "report/Failure.h"
#include "report/NumberText.h"

namespace ScanHost {

namespace {

Sheet sheetOf(const Scene& scene, const PictureRequest& request) {
    if (scene.empty()) {
        throw Failure("there is nothing to draw: no scan");
    }
    switch (request.kind) {
        case PictureKind::Panorama:
            return panoramaSheet(scene, request);
        case PictureKind::Times:
            return timesSheet(scene, request);
        case PictureKind::Path:
            return pathSheet(scene, request);
        default:
            return mapSheet(scene, request);
    }
}

/// The one stance of a scene.
Scene stanceOf(const Scene& scene) {
    Scene stances;
    std::copy_if(scene.begin(), scene.end(), std::back_inserter(stances),
                 [](const SceneScan& scan) { return scan.stance.has_value(); });
    if (stances.size() != 1) {
        throw unexpected("--panorama", countText(stances.size(), "stance", "stances"),
                         "one: choose it with --scan N");
    }
    return stances;
}

std::filesystem::path panoramaFile(const std::filesystem::path& file, std::size_t number) {
    std::filesystem::path panorama = file;
    panorama.replace_filename(
        fmt::format("{}-panorama-{}{}", file.stem().string(), number, file.extension().string()));
    return panorama;
}

PictureFile draw(const Scene& scene, const std::vector<std::string>& files,
                 const PictureRequest& request, const std::filesystem::path& file,
                 const OutputRules& rules) {
    Sheet sheet = sheetOf(scene, request);
    sheet.title.what = filesText(files);
    writeSheet(sheet, file, rules);
    const bool panorama = request.kind == PictureKind::Panorama;
    return {file,
            panorama ? fmt::format("panorama of {}", scene.front().name) : kindText(request.kind),
            sheet.width, sheet.height, sheet.notes};
}

}  // namespace

PictureFile drawPicture(const Scene& scene, const std::vector<std::string>& files,
                        const PictureRequest& request, const std::filesystem::path& file,
                        const OutputRules& rules) {
    return request.kind == PictureKind::Panorama
               ? draw(stanceOf(scene), files, request, file, rules)
               : draw(scene, files, request, file, rules);
}

std::vector<PictureFile> drawPlanAndPanoramas(const Scene& scene,
                                              const std::vector<std::string>& files,
                                              const std::filesystem::path& file,
                                              const OutputRules& rules) {
    std::vector<PictureFile> pictures{draw(scene, files, {}, file, rules)};
    for (std::size_t i = 0; i < scene.size(); ++i) {
        if (scene[i].stance && samplePoints(scene[i]).points.size() > 0) {
            pictures.push_back(draw({scene[i]}, files, {.kind = PictureKind::Panorama},
                                    panoramaFile(file, i + 1), rules));
        }
    }
    return pictures;
}

}  // namespace ScanHost
