// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "ptx/PtxScans.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "Ovr/Vardex/CorvinStanceScanData.h"
#include "kit/TextFields.h"
#include "ptx/PtxHeader.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

/// Goes over a scan. Requires: the first line of its header is the current one.
/// @param isCut  out: whether a file that is read as far as it goes ends within the points
[[nodiscard]] ErrorPtr passScan(TextLines& lines, bool lenient, bool& isCut) {
    PtxHeader header;
    if (ErrorPtr error = readPtxHeader(lines, header, lenient)) {
        return error;
    }
    const std::uint64_t passed = lines.skip(header.cells());
    isCut = passed < header.cells();
    if (ErrorPtr error = lines.error()) {
        return error;
    }
    return isCut && (!lenient || passed == 0) ? cutPtxScan(lines, passed, header.cells()) : nullptr;
}

}  // namespace

/// Whether lines look like the head of a scan: two counts, then three numbers.
bool looksLikePtx(std::string_view beginning) {
    int line = 0;
    while (!beginning.empty()) {
        const std::size_t end = std::min(beginning.find('\n'), beginning.size());
        const std::string_view text = trimmed(beginning.substr(0, end));
        beginning.remove_prefix(std::min(end + 1, beginning.size()));
        if (text.empty()) {
            continue;
        }
        if (line == 2) {
            return splitFields(text, {}) == 3;
        }
        if (parseInteger(text).value_or(0) <= 0) {
            return false;
        }
        ++line;
    }
    return false;
}

ErrorPtr cutPtxScan(TextLines& lines, std::uint64_t found, std::uint64_t expected) {
    ErrorPtr error = lines.error();
    return error
               ? std::move(error)
               : lines.fault(ErrorCode::Truncated,
                             fmt::format("the end of the file after {}", countText(found, "point")),
                             fmt::format("{} in the scan", expected));
}

ErrorPtr listPtxScans(const std::filesystem::path& path, bool lenient,
                      std::vector<ScanListing>& scans) {
    TextLines lines;
    if (ErrorPtr error = lines.open(path)) {
        return error;
    }
    std::vector<ScanListing> found;
    bool isCut = false;
    while (!isCut && lines.next()) {
        if (lenient && !found.empty() && !parseInteger(lines.text())) {
            break;  // the scan's reader tells
        }
        ScanSource source;
        source.file = path;
        source.scanIndex = static_cast<std::uint32_t>(found.size());
        source.byteOffset = lines.offset();
        source.line = lines.line();
        if (ErrorPtr error = passScan(lines, lenient, isCut)) {
            return error;
        }
        std::string name = path.filename().string();
        if (!found.empty()) {
            name += fmt::format(" ({})", found.size() + 1);
        }
        found.push_back({VardexLib::CorvinStanceScanData::getStaticPointSetClassIdentifier(),
                         std::move(name), std::move(source)});
    }
    if (ErrorPtr error = lines.error()) {
        return error;
    }
    if (found.empty()) {
        return makeError(ErrorCode::EmptyFile, {path.string(), "", "no scan, only blanks", ""});
    }
    scans.insert(scans.end(), std::make_move_iterator(found.begin()),
                 std::make_move_iterator(found.end()));
    return nullptr;
}

}  // namespace Ovr::Formats
