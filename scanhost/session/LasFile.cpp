// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/LasFile.h"

#include "Ovr/FormatRegistry.h"
#include "Ovr/Remarks.h"
#include "kit/InputFile.h"

namespace ScanHost {

bool isLas(const Ovr::ScanSource& source) {
    const auto format = Ovr::FormatRegistry::the().find(source.file);
    return format && format->name() == "LAS";
}

std::optional<Ovr::Formats::LasHeader> lasHeaderOf(const Ovr::ScanSource& source) {
    Ovr::Formats::InputFile file;
    Ovr::Formats::LasHeader header;
    Ovr::Remarks unheard;
    if (!isLas(source) || file.open(source.file) ||
        readLasHeader(file, header, unheard, source.lenient)) {
        return std::nullopt;
    }
    return header;
}

}  // namespace ScanHost
