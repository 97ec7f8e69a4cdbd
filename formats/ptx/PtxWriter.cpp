// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "ptx/PtxWriter.h"

#include <fmt/compile.h>
#include <fmt/format.h>

#include <charconv>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <span>

#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

constexpr int kDecimals = 6;

void appendFixed(std::string& line, double value) {
    std::array<char, 352> text{};  // the longest double has 309 digits in front of the point
    const auto [end, failure] = std::to_chars(text.data(), text.data() + text.size(), value,
                                              std::chars_format::fixed, kDecimals);
    line.append(text.data(), end);
    line += ' ';
}

void endLine(std::string& line) {
    line.back() = '\n';
}

/// Numbers in the shortest form that reads back as the same double.
void appendExact(std::string& text, std::span<const double> values) {
    for (const double value : values) {
        std::array<char, 32> digits{};
        const auto [end, failure] =
            std::to_chars(digits.data(), digits.data() + digits.size(), value);
        text.append(digits.data(), end);
        text += ' ';
    }
    endLine(text);
}

}  // namespace

ErrorPtr PtxWriter::open(const std::filesystem::path& file, Existing existing) {
    name_ = file.string();
    return file_.open(file, existing);
}

ErrorPtr PtxWriter::beginScan(const PtxScan& scan) {
    if (ErrorPtr error = checkComplete()) {
        return error;
    }
    colored_ = scan.colored;
    cellsLeft_ = static_cast<std::uint64_t>(scan.columns) * static_cast<std::uint64_t>(scan.rows);
    const std::span<const double> pose = scan.pose;
    std::string header = fmt::format("{}\n{}\n", scan.columns, scan.rows);
    appendExact(header, pose.subspan(12, 3));
    for (const std::size_t axis : {0U, 4U, 8U}) {
        appendExact(header, pose.subspan(axis, 3));
    }
    for (const std::size_t line : {0U, 4U, 8U, 12U}) {
        appendExact(header, pose.subspan(line, 4));
    }
    return put(header);
}

ErrorPtr PtxWriter::write(const PtxCell& cell) {
    if (cellsLeft_ == 0) {
        return makeError(ErrorCode::InvalidValue,
                         {name_, "", "more points than the scan's grid has cells", ""});
    }
    --cellsLeft_;
    line_.clear();
    appendFixed(line_, cell.position.x);
    appendFixed(line_, cell.position.y);
    appendFixed(line_, cell.position.z);
    appendFixed(line_, cell.intensity);
    if (colored_) {
        const auto& [red, green, blue] = cell.color;
        fmt::format_to(std::back_inserter(line_), FMT_COMPILE("{} {} {} "), red, green, blue);
    }
    endLine(line_);
    return put(line_);
}

ErrorPtr PtxWriter::writeNoReturn() {
    return write({{}, 0.5, {}});
}

ErrorPtr PtxWriter::finish() {
    if (ErrorPtr error = checkComplete()) {
        return error;
    }
    return file_.commit();
}

ErrorPtr PtxWriter::put(const std::string& line) {
    file_.stream().write(line.data(), static_cast<std::streamsize>(line.size()));
    return file_.failure();
}

ErrorPtr PtxWriter::checkComplete() const {
    if (cellsLeft_ == 0) {
        return nullptr;
    }
    return makeError(
        ErrorCode::InvalidValue,
        {name_, "", fmt::format("a scan with {} missing", countText(cellsLeft_, "cell")), ""});
}

}  // namespace Ovr::Formats
