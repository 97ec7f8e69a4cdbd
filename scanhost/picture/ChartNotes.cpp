// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/ChartNotes.h"

#include <fmt/format.h>

#include "report/NumberText.h"

namespace ScanHost {

void addClockNote(const SceneScan& scan, std::vector<std::string>& notes) {
    const std::string date = scan.clock.dateOf(0.0);
    notes.push_back(fmt::format("{}: scan time 0 is {} s in the file{}.", scan.name,
                                fixedText(scan.clock.zero(), kSecondDigits),
                                date.empty() ? "" : ", " + date));
}

}  // namespace ScanHost
