// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "ptx/PtxReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Ovr/Vardex/CorvinMetaData.h"
#include "Ovr/Vardex/CorvinStanceScanData.h"
#include "kit/PointSink.h"
#include "kit/TextFields.h"
#include "kit/TextLines.h"
#include "kit/WorkWatch.h"
#include "ptx/PtxHeader.h"
#include "ptx/PtxPoint.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

/// The error of lines that ended within the points of a scan.
[[nodiscard]] ErrorPtr cutScan(TextLines& lines, std::uint64_t found, std::uint64_t expected) {
    ErrorPtr error = lines.error();
    return error
               ? std::move(error)
               : lines.fault(ErrorCode::Truncated,
                             fmt::format("the end of the file after {}", countText(found, "point")),
                             fmt::format("{} in the scan", expected));
}

class PtxReader final : public IScanReader {
  public:
    explicit PtxReader(const ScanSource& source) : IScanReader(source) {}

    ErrorPtr loadPoints(const LoadTarget& target, StatisticsReport& statistics) override;

  private:
    [[nodiscard]] ErrorPtr loadGrid(const LoadTarget& target, const PtxHeader& header,
                                    TextLines& lines, StatisticsReport& statistics);
    [[nodiscard]] ErrorPtr fillColumns(PointSink& sink, PtxPointParser& parser, TextLines& lines,
                                       const PtxHeader& grid, StatisticBuilder& distances,
                                       WorkWatch watch) const;
    void checkPose(const PtxHeader& header, Remarks& remarks) const;
};

ErrorPtr PtxReader::loadPoints(const LoadTarget& target, StatisticsReport& statistics) {
    TextLines lines;
    if (ErrorPtr error = lines.open(source().file, source().byteOffset, source().line)) {
        return error;
    }
    PtxHeader header;
    if (ErrorPtr error = lines.require("a scan")) {
        return error;
    }
    if (ErrorPtr error = readPtxHeader(lines, header)) {
        return error;
    }
    if (ErrorPtr error = loadGrid(target, header, lines, statistics)) {
        return error;
    }
    checkPose(header, target.remarks);
    if (auto* stance = dynamic_cast<VardexLib::CorvinStanceMetaData*>(target.metaData)) {
        stance->SlamPose(header.pose);
    }
    return nullptr;
}

ErrorPtr PtxReader::loadGrid(const LoadTarget& target, const PtxHeader& header, TextLines& lines,
                             StatisticsReport& statistics) {
    PtxHeader grid = header;
    const auto rows = static_cast<std::uint64_t>(header.rows);
    grid.columns = static_cast<int>(
        std::min(static_cast<std::uint64_t>(header.columns), target.maximumCount / rows));
    if (!lines.next()) {
        return cutScan(lines, 0, header.cells());
    }
    PtxPointParser parser;
    if (ErrorPtr error = parser.start(lines)) {
        return error;
    }
    PointSink sink(target.integration, parser.colored());
    if (ErrorPtr error = sink.resize(grid.rows, grid.columns, source().file)) {
        return error;
    }
    StatisticBuilder distances;
    if (ErrorPtr error =
            fillColumns(sink, parser, lines, grid, distances, WorkWatch(target.work))) {
        return error;
    }
    parser.remark(target.remarks, lines.fileName());
    const ValueStatistic distance = distances.result();
    if (distance.count != 0) {
        statistics.distance = distance;
    }
    statistics.reflection = sink.reflectionStatistic();
    return nullptr;
}

/// Requires: the grid's first point is the current line.
ErrorPtr PtxReader::fillColumns(PointSink& sink, PtxPointParser& parser, TextLines& lines,
                                const PtxHeader& grid, StatisticBuilder& distances,
                                WorkWatch watch) const {
    std::uint64_t done = 0;
    for (int col = 0; col < grid.columns; ++col) {
        for (int row = 0; row < grid.rows; ++row) {
            if (done != 0 && !lines.next()) {
                return cutScan(lines, done, grid.cells());
            }
            ReadPoint point;
            bool isReturn = false;
            if (ErrorPtr error = parser.parse(lines, point, isReturn)) {
                return error;
            }
            if (isReturn) {
                sink.put(row, col, point);
                distances.add(parser.distance());
            } else {
                sink.putNull(row, col);
            }
            ++done;
            if (done % 1024 == 0 &&
                !watch.goOn(static_cast<double>(done) / static_cast<double>(grid.cells()))) {
                return cancelled(lines.fileName());
            }
        }
    }
    return watch.goOn(1.0) ? nullptr : cancelled(lines.fileName());
}

/// A matrix written by rows would have its translation where these constants belong.
void PtxReader::checkPose(const PtxHeader& header, Remarks& remarks) const {
    const auto& m = header.pose;
    if (m[3] != 0.0 || m[7] != 0.0 || m[11] != 0.0 || m[15] != 1.0) {
        remarks.warn(
            fmt::format("{}: line {}: the fourth column of the scan's matrix is not 0 0 0 1",
                        source().file.string(), source().line));
    }
}

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

class PtxFormat final : public IScanFormat {
  public:
    std::string name() const override { return "PTX"; }
    std::vector<std::string> extensions() const override { return {"ptx"}; }
    std::string classIdentifier() const override {
        return VardexLib::CorvinStanceScanData::getStaticPointSetClassIdentifier();
    }
    bool recognises(std::string_view beginning) const override { return looksLikePtx(beginning); }
    ErrorPtr list(const std::filesystem::path& path,
                  std::vector<ScanListing>& scans) const override;
    std::unique_ptr<IScanReader> makeReader(const ScanSource& source) const override {
        return std::make_unique<PtxReader>(source);
    }
};

ErrorPtr PtxFormat::list(const std::filesystem::path& path, std::vector<ScanListing>& scans) const {
    TextLines lines;
    if (ErrorPtr error = lines.open(path)) {
        return error;
    }
    std::vector<ScanListing> found;
    while (lines.next()) {
        ScanSource source;
        source.file = path;
        source.scanIndex = static_cast<std::uint32_t>(found.size());
        source.byteOffset = lines.offset();
        source.line = lines.line();
        PtxHeader header;
        if (ErrorPtr error = readPtxHeader(lines, header)) {
            return error;
        }
        for (std::uint64_t cell = 0; cell < header.cells(); ++cell) {
            if (!lines.next()) {
                return cutScan(lines, cell, header.cells());
            }
        }
        std::string name = path.filename().string();
        if (!found.empty()) {
            name += fmt::format(" ({})", found.size() + 1);
        }
        found.push_back({classIdentifier(), std::move(name), std::move(source)});
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

}  // namespace

std::shared_ptr<const IScanFormat> ptxFormat() {
    return std::make_shared<PtxFormat>();
}

}  // namespace Ovr::Formats
