// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/ScanPictures.h"

#include <fmt/format.h>

#include "kit/AtomicFile.h"

#include "session/MobileScan.h"
#include "session/Require.h"

namespace ScanHost {

namespace {

void write(const Picture& picture, const std::filesystem::path& file, const OutputRules& rules) {
    rules.check({file, {".png"}});
    const std::string bytes = picture.png();
    Ovr::Formats::AtomicFile output;
    requireOk(output.open(file, rules.existing()));
    output.stream().write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    requireOk(output.commit());
}

std::filesystem::path panoramaFile(const std::filesystem::path& file, std::size_t number) {
    std::filesystem::path panorama = file;
    panorama.replace_filename(
        fmt::format("{}-panorama-{}{}", file.stem().string(), number, file.extension().string()));
    return panorama;
}

}  // namespace

std::vector<PictureFile> drawScans(const std::vector<ImportedScan>& scans,
                                   const std::filesystem::path& file, const OutputRules& rules) {
    std::vector<PictureFile> pictures(1);
    pictures[0].file = file;
    write(topView(scans, pictures[0].shows), file, rules);
    std::size_t number = 0;
    for (const ImportedScan& scan : scans) {
        ++number;
        if (!MobileScan::isMobile(scan) && scan.pointSet->getNumPoints() > 0) {
            const std::filesystem::path target = panoramaFile(file, number);
            write(panorama(*scan.pointSet), target, rules);
            pictures.push_back({target, "panorama of " + scan.name});
        }
    }
    return pictures;
}

}  // namespace ScanHost
