// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/KnownFiles.h"

#include <fmt/format.h>

#include "Ovr/FormatRegistry.h"

namespace ScanHost {

std::string pointsFileText(const std::string& noun) {
    return fmt::format("{} ({})", noun, Ovr::FormatRegistry::the().knownExtensions());
}

std::string projectFileText(const std::string& noun) {
    std::string list;
    for (const std::string& extension : Ovr::FormatRegistry::the().projectFormat().extensions) {
        list += (list.empty() ? "." : ", .") + extension;
    }
    return fmt::format("{} ({})", noun, list);
}

std::string trajectoryNames() {
    std::string list;
    for (const std::string& extension : Ovr::FormatRegistry::the().trajectoryFormat().extensions) {
        list += (list.empty() ? "NAME." : " or NAME.") + extension;
    }
    return list;
}

}  // namespace ScanHost
