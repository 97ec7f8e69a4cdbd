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
#include "ptx/PtxScans.h"

namespace Ovr::Formats {

namespace {

class PtxReader final : public IScanReader {
  public:
    PtxReader(const ScanSource& source, const PtxSharing& sharing)
        : IScanReader(source), sharing_(sharing) {}

    ErrorPtr loadPoints(const LoadTarget& target, StatisticsReport& statistics) override;

  private:
    /// What is at work while the points of a scan are loaded.
    struct Loading {
        PtxHeader grid;  ///< with the columns that are loaded
        PointSink sink;
        PtxPointParser parser;
        WorkWatch watch;
        PtxFindings findings{};
        StatisticBuilder distances{};
        std::uint64_t done = 0;  ///< cells
        int row = 0;             ///< of the next cell
        int col = 0;
        ErrorPtr cut{};              ///< why the points ended early
        std::uint64_t cutAfter = 0;  ///< points

        [[nodiscard]] bool put(const PtxPoint& point);
    };

    [[nodiscard]] ErrorPtr toFirstPoint(TextLines& lines, PtxHeader& header) const;
    [[nodiscard]] ErrorPtr loadGrid(const LoadTarget& target, const PtxHeader& header,
                                    TextLines& lines, StatisticsReport& statistics);
    [[nodiscard]] ErrorPtr fillColumns(Loading& loading, TextLines& lines) const;
    [[nodiscard]] ErrorPtr fillAgain(Loading& loading) const;
    bool isForgiven(const PtxBlock* block) const;
    void remarkOnEnd(const Loading& loading, TextLines& lines, Remarks& remarks) const;

    PtxSharing sharing_;
};

ErrorPtr PtxReader::loadPoints(const LoadTarget& target, StatisticsReport& statistics) {
    TextLines lines;
    PtxHeader header;
    if (ErrorPtr error = toFirstPoint(lines, header)) {
        return error;
    }
    if (ErrorPtr error = loadGrid(target, header, lines, statistics)) {
        return error;
    }
    remarkOnPtxPose(header, fmt::format("{}: line {}", source().file.string(), source().line),
                    target.remarks);
    if (auto* stance = dynamic_cast<VardexLib::CorvinStanceMetaData*>(target.metaData)) {
        stance->SlamPose(header.pose);
    }
    return nullptr;
}

/// Opens the file and reads the scan's header.
/// @return empty on success, and then the scan's first point is the current line
ErrorPtr PtxReader::toFirstPoint(TextLines& lines, PtxHeader& header) const {
    if (ErrorPtr error = lines.open(source().file, source().byteOffset, source().line)) {
        return error;
    }
    if (ErrorPtr error = lines.require("a scan")) {
        return error;
    }
    if (ErrorPtr error = readPtxHeader(lines, header, source().lenient)) {
        return error;
    }
    return lines.next() ? nullptr : cutPtxScan(lines, 0, header.cells());
}

ErrorPtr PtxReader::loadGrid(const LoadTarget& target, const PtxHeader& header, TextLines& lines,
                             StatisticsReport& statistics) {
    PtxHeader grid = header;
    const auto rows = static_cast<std::uint64_t>(header.rows);
    grid.columns = static_cast<int>(
        std::min(static_cast<std::uint64_t>(header.columns), target.maximumCount / rows));
    PtxPointParser parser;
    if (ErrorPtr error = parser.start(lines.current())) {
        return error;
    }
    Loading loading{grid, PointSink(target.integration, parser.colored()), parser,
                    WorkWatch(target.work)};
    if (ErrorPtr error = loading.sink.resize(grid.rows, grid.columns, source().file)) {
        return error;
    }
    if (ErrorPtr error = fillColumns(loading, lines)) {
        return error;
    }
    if (loading.findings.hasFractionColors()) {
        if (ErrorPtr error = fillAgain(loading)) {
            return error;
        }
    }
    loading.parser.remark(loading.findings, target.remarks, lines.fileName());
    if (source().lenient && grid.columns == header.columns) {
        remarkOnEnd(loading, lines, target.remarks);
    }
    const ValueStatistic distance = loading.distances.result();
    if (distance.count != 0) {
        statistics.distance = distance;
    }
    statistics.reflection = loading.sink.reflectionStatistic();
    return nullptr;
}

/// Reads the points once more, with colours that are fractions: only all colours of a scan tell
/// those from a dark scan.
ErrorPtr PtxReader::fillAgain(Loading& loading) const {
    TextLines lines;
    PtxHeader header;
    if (ErrorPtr error = toFirstPoint(lines, header)) {
        return error;
    }
    loading.parser.takeFractionColors();
    loading.sink.restart();
    loading.findings = {};
    loading.distances = {};
    loading.done = 0;
    loading.row = 0;
    loading.col = 0;
    loading.cut = nullptr;
    return fillColumns(loading, lines);
}

/// Puts a point into the next cell, column after column.
/// @return false when the work is to stop
bool PtxReader::Loading::put(const PtxPoint& point) {
    if (point.isReturn) {
        sink.put(row, col, point.point);
        distances.add(point.distance);
    } else {
        sink.putNull(row, col);
    }
    if (++row == grid.rows) {
        row = 0;
        ++col;
    }
    ++done;
    return done % 1024 != 0 ||
           watch.goOn(static_cast<double>(done) / static_cast<double>(grid.cells()));
}

/// Whether what ended the points early is the end of a file that is read as far as it goes.
/// @param block  the one whose error it is; null when there was no line
bool PtxReader::isForgiven(const PtxBlock* block) const {
    if (!source().lenient || block == nullptr) {
        return source().lenient;
    }
    // The last line of a file that is cut may be half a line.
    TextLines rest;
    return !rest.open(source().file, block->errorOffset, block->errorLine) && rest.next() &&
           !rest.next();
}

/// Of a file that is read as far as it goes: tells what is missing, and what is left over.
void PtxReader::remarkOnEnd(const Loading& loading, TextLines& lines, Remarks& remarks) const {
    if (loading.cut) {
        remarks.warn(fmt::format("{}; {} before it kept, the other cells have no return",
                                 loading.cut->message(), countText(loading.cutAfter, "point")));
    } else if (lines.next() && !parseInteger(lines.text())) {
        remarks.warn(fmt::format("{}: line {}: more lines than the scan's {}; they are not read",
                                 lines.fileName(), lines.line(),
                                 countText(loading.grid.cells(), "point")));
    }
}

/// Requires: the grid's first point is the current line.
ErrorPtr PtxReader::fillColumns(Loading& loading, TextLines& lines) const {
    const std::uint64_t cells = loading.grid.cells();
    lines.back();
    PtxBlocks blocks(lines, loading.parser, cells, sharing_);
    while (loading.done < cells && !loading.cut) {
        PtxBlock* const block = blocks.next();
        for (std::uint64_t i = 0; block != nullptr && i < block->count; ++i) {
            if (!loading.put(block->points[i])) {
                return cancelled(lines.fileName());
            }
        }
        ErrorPtr error;
        if (block == nullptr) {
            error = cutPtxScan(lines, loading.done, cells);
        } else {
            loading.findings.merge(block->findings);
            error = std::move(block->error);
        }
        if (error && !isForgiven(block)) {
            return error;
        }
        loading.cut = std::move(error);
        loading.cutAfter = loading.done;
    }
    while (loading.done < cells) {
        if (!loading.put({})) {
            return cancelled(lines.fileName());
        }
    }
    return loading.watch.goOn(1.0) ? nullptr : cancelled(lines.fileName());
}

class PtxFormat final : public IScanFormat {
  public:
    std::string name() const override { return "PTX"; }
    std::vector<std::string> extensions() const override { return {"ptx"}; }
    std::string classIdentifier() const override {
        return VardexLib::CorvinStanceScanData::getStaticPointSetClassIdentifier();
    }
    bool recognises(std::string_view beginning) const override { return looksLikePtx(beginning); }
    ErrorPtr list(const std::filesystem::path& path, bool lenient,
                  std::vector<ScanListing>& scans) const override {
        return listPtxScans(path, lenient, scans);
    }
    std::unique_ptr<IScanReader> makeReader(const ScanSource& source) const override {
        return makePtxReader(source, usualPtxSharing());
    }
};

}  // namespace

std::unique_ptr<IScanReader> makePtxReader(const ScanSource& source, const PtxSharing& sharing) {
    return std::make_unique<PtxReader>(source, sharing);
}

std::shared_ptr<const IScanFormat> ptxFormat() {
    return std::make_shared<PtxFormat>();
}

}  // namespace Ovr::Formats
