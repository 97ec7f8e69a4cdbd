// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "ptx/PtxHeader.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "kit/NumberLine.h"
#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

constexpr std::int64_t kMostCells = std::numeric_limits<std::int32_t>::max();
/// "0 0 0 0" and a line end.
constexpr std::uint64_t kShortestPointLine = 8;  // [bytes]
/// The scanner's position and its three axes, which the matrix holds again.
constexpr std::size_t kPlacementLines = 4;

[[nodiscard]] ErrorPtr readCount(const TextLines& lines, std::string_view what, int& count) {
    const std::optional<std::int64_t> value = parseInteger(lines.text());
    if (!value || *value < 1 || *value > kMostCells) {
        return lines.fault(value ? ErrorCode::InvalidValue : ErrorCode::WrongFormat,
                           inQuotes(lines.text()),
                           fmt::format("the number of {}, 1 to {}", what, kMostCells));
    }
    count = static_cast<int>(*value);
    return nullptr;
}

[[nodiscard]] ErrorPtr readPlacement(TextLines& lines, PtxHeader& header) {
    for (std::size_t i = 0; i < kPlacementLines; ++i) {
        if (ErrorPtr error = lines.require("a line of the scanner's placement")) {
            return error;
        }
        if (ErrorPtr error =
                readNumbers(lines.current(), std::span(header.placement).subspan(3 * i, 3))) {
            return error;
        }
    }
    for (std::size_t line = 0; line < 4; ++line) {
        if (ErrorPtr error = lines.require("a line of the scan's 4 x 4 matrix")) {
            return error;
        }
        if (ErrorPtr error =
                readNumbers(lines.current(), std::span(header.pose).subspan(4 * line, 4))) {
            return error;
        }
    }
    return nullptr;
}

/// Before anything is sized by the grid: a file cannot hold more points than lines fit into it.
[[nodiscard]] ErrorPtr checkGrid(const TextLines& lines, PtxHeader& header, bool lenient) {
    const std::string grid =
        fmt::format("a grid of {} x {} = {} points", header.columns, header.rows, header.cells());
    if (header.cells() > static_cast<std::uint64_t>(kMostCells)) {
        return lines.fault(ErrorCode::InvalidValue, grid, fmt::format("at most {}", kMostCells));
    }
    const std::uint64_t rest = lines.fileSize() - std::min(lines.fileSize(), lines.offset());
    const std::uint64_t fitting = rest / kShortestPointLine;
    const auto rows = static_cast<std::uint64_t>(header.rows);
    if (header.cells() > fitting && lenient && fitting >= rows) {
        header.columns = static_cast<int>((fitting + rows - 1) / rows);
    } else if (header.cells() > fitting) {
        return lines.fault(
            ErrorCode::Truncated, grid,
            fmt::format("at most {}, for which the rest of the file has room", fitting));
    }
    return nullptr;
}

}  // namespace

ErrorPtr readPtxHeader(TextLines& lines, PtxHeader& header, bool lenient) {
    if (ErrorPtr error = readCount(lines, "columns", header.columns)) {
        return error;
    }
    if (ErrorPtr error = lines.require("the number of rows")) {
        return error;
    }
    if (ErrorPtr error = readCount(lines, "rows", header.rows)) {
        return error;
    }
    if (ErrorPtr error = checkGrid(lines, header, lenient)) {
        return error;
    }
    return readPlacement(lines, header);
}

}  // namespace Ovr::Formats
