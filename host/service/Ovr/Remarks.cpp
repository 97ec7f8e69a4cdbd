// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Remarks.h"

#include <algorithm>

namespace Ovr {

namespace {

void addOnce(const std::string& line, std::vector<std::string>& lines) {
    if (std::find(lines.begin(), lines.end(), line) == lines.end()) {
        lines.push_back(line);
    }
}

}  // namespace

void Remarks::warn(const std::string& line) {
    const std::lock_guard guard(mutex_);
    addOnce(line, warnings_);
}

void Remarks::note(const std::string& line) {
    const std::lock_guard guard(mutex_);
    addOnce(line, notes_);
}

std::vector<std::string> Remarks::warnings() const {
    const std::lock_guard guard(mutex_);
    return warnings_;
}

std::vector<std::string> Remarks::notes() const {
    const std::lock_guard guard(mutex_);
    return notes_;
}

}  // namespace Ovr
