// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/Finding.h"

#include <algorithm>

namespace Ovr::Formats {

void Finding::add(std::uint64_t line, double value) {
    if (count++ == 0) {
        firstLine = line;
    }
    extreme = std::max(extreme, value);
}

std::string Finding::where() const {
    return ", first at line " + std::to_string(firstLine);
}

}  // namespace Ovr::Formats
