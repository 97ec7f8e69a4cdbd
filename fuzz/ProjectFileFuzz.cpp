// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>

#include "Ovr/FormatRegistry.h"
#include "RegisterFormats.h"
#include "support/TempFolder.h"

namespace {

/// The files that the seeds name, next to the project file. They are removed when the fuzzer ends.
const Support::TempFolder& projectFolder() {
    static const Support::TempFolder folder;
    static const bool ready = [] {
        Ovr::Formats::registerFormats();
        const std::string scan =
            "1\n1\n0 0 0\n1 0 0\n0 1 0\n0 0 1\n1 0 0 0\n0 1 0 0\n0 0 1 0\n0 0 0 1\n1 2 3 0.5\n";
        folder.write("a.ptx", scan + scan);
        folder.write("a.las", "x");
        folder.write("t.txt", "0 0 0 0 0 0 0 1\n");
        return true;
    }();
    static_cast<void>(ready);
    return folder;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto file = projectFolder().write(
        "site.json", std::string_view(reinterpret_cast<const char*>(data), size));
    Ovr::ProjectFile project;
    if (const auto error = Ovr::FormatRegistry::the().readProject(file, project)) {
        if (!project.scans.empty() || error->message().find('\n') != std::string::npos) {
            std::abort();
        }
        return 0;
    }
    std::set<std::string> names;
    for (const auto& scan : project.scans) {
        if (!names.insert(scan.name).second || !std::filesystem::exists(scan.points)) {
            std::abort();
        }
        for (const double value : scan.slamPose.value_or(std::array<double, 16>{})) {
            if (!std::isfinite(value)) {
                std::abort();
            }
        }
    }
    return 0;
}
