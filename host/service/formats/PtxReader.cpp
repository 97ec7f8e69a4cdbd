// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "formats/PtxReader.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Ovr/Vardex/CorvinMetaData.h"
#include "Ovr/Vardex/CorvinStanceScanData.h"
#include "formats/PointSink.h"
#include "formats/PtxHeader.h"
#include "formats/PtxPoint.h"
#include "formats/TextFields.h"
#include "formats/TextLines.h"
#include "formats/WorkWatch.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

/// The error of lines that ended within the points of a scan.
ErrorPtr cutScan(TextLines& lines, std::uint64_t found, std::uint64_t expected) {
    ErrorPtr error = lines.error();
    return error ? std::move(error)
                 : lines.fault(ErrorCode::Truncated,
                               "the end of the file after " + countText(found, "point"),
                               std::to_string(expected) + " in the scan");
}

class PtxReader final : public IScanReader {
  public:
    explicit PtxReader(ScanSource source) : source_(std::move(source)) {}

    ErrorPtr loadPoints(const LoadTarget& target, StatisticsReport& statistics) override;

    ErrorPtr loadTimes(const TimeTarget& /*target*/) override {
        return makeError(ErrorCode::NoTimes,
                         {source_.file.string(), "", "a PTX file, whose points have no time", ""});
    }

    std::vector<std::string> warnings() const override { return warnings_; }

  private:
    ErrorPtr loadGrid(const LoadTarget& target, const PtxHeader& header, TextLines& lines,
                      StatisticsReport& statistics);
    ErrorPtr fillColumns(PointSink& sink, PtxPointParser& parser, TextLines& lines,
                         const PtxHeader& grid, StatisticBuilder& distances) const;
    void checkPose(const PtxHeader& header);

    ScanSource source_;
    std::vector<std::string> warnings_;
};

ErrorPtr PtxReader::loadPoints(const LoadTarget& target, StatisticsReport& statistics) {
    TextLines lines;
    if (ErrorPtr error = lines.open(source_.file, source_.byteOffset, source_.line)) {
        return error;
    }
    PtxHeader header;
    if (!lines.next()) {
        ErrorPtr error = lines.error();
        return error ? std::move(error)
                     : lines.fault(ErrorCode::Truncated, "the end of the file", "a scan");
    }
    if (ErrorPtr error = readPtxHeader(lines, header)) {
        return error;
    }
    if (ErrorPtr error = loadGrid(target, header, lines, statistics)) {
        return error;
    }
    checkPose(header);
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
    if (ErrorPtr error = sink.resize(grid.rows, grid.columns, source_.file)) {
        return error;
    }
    StatisticBuilder distances;
    if (ErrorPtr error = fillColumns(sink, parser, lines, grid, distances)) {
        return error;
    }
    for (std::string& line : parser.findings(lines.fileName())) {
        warnings_.push_back(std::move(line));
    }
    const ValueStatistic distance = distances.result();
    if (distance.count != 0) {
        statistics.distance = distance;
    }
    statistics.reflection = sink.reflectionStatistic();
    return nullptr;
}

/// Requires: the grid's first point is the current line.
ErrorPtr PtxReader::fillColumns(PointSink& sink, PtxPointParser& parser, TextLines& lines,
                                const PtxHeader& grid, StatisticBuilder& distances) const {
    WorkWatch watch(source_.progress.get(), source_.cancel.get());
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
void PtxReader::checkPose(const PtxHeader& header) {
    const auto& m = header.pose;
    if (m[3] != 0.0 || m[7] != 0.0 || m[11] != 0.0 || m[15] != 1.0) {
        warnings_.push_back(source_.file.string() + ": line " + std::to_string(source_.line) +
                            ": the fourth column of the scan's matrix is not 0 0 0 1");
    }
}

ErrorPtr listPtx(const std::filesystem::path& path, std::vector<ScanListing>& scans) {
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
            name += " (" + std::to_string(found.size() + 1) + ")";
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

}  // namespace

Format ptxFormat() {
    return {listPtx, [](const ScanSource& source) { return std::make_unique<PtxReader>(source); },
            VardexLib::CorvinStanceScanData::getStaticPointSetClassIdentifier()};
}

}  // namespace Ovr::Formats
