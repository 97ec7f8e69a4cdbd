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
    /// What is at work while the points of a scan are loaded.
    struct Loading {
        PtxHeader grid;  ///< with the columns that are loaded
        PointSink sink;
        PtxPointParser parser;
        WorkWatch watch;
        StatisticBuilder distances{};
        ErrorPtr cut{};              ///< why the points ended early
        std::uint64_t cutAfter = 0;  ///< points
    };

    [[nodiscard]] ErrorPtr toFirstPoint(TextLines& lines, PtxHeader& header) const;
    [[nodiscard]] ErrorPtr loadGrid(const LoadTarget& target, const PtxHeader& header,
                                    TextLines& lines, StatisticsReport& statistics);
    [[nodiscard]] ErrorPtr fillColumns(Loading& loading, TextLines& lines) const;
    [[nodiscard]] ErrorPtr readCell(Loading& loading, TextLines& lines, std::uint64_t done,
                                    ReadPoint& point, bool& isReturn) const;
    [[nodiscard]] ErrorPtr fillAgain(Loading& loading) const;
    void remarkOnEnd(const Loading& loading, TextLines& lines, Remarks& remarks) const;
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
    return lines.next() ? nullptr : cutScan(lines, 0, header.cells());
}

ErrorPtr PtxReader::loadGrid(const LoadTarget& target, const PtxHeader& header, TextLines& lines,
                             StatisticsReport& statistics) {
    PtxHeader grid = header;
    const auto rows = static_cast<std::uint64_t>(header.rows);
    grid.columns = static_cast<int>(
        std::min(static_cast<std::uint64_t>(header.columns), target.maximumCount / rows));
    PtxPointParser parser;
    if (ErrorPtr error = parser.start(lines)) {
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
    if (loading.parser.hasFractionColors()) {
        if (ErrorPtr error = fillAgain(loading)) {
            return error;
        }
    }
    loading.parser.remark(target.remarks, lines.fileName());
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
    loading.parser = {};
    loading.parser.takeFractionColors();
    loading.sink.restart();
    loading.distances = {};
    if (ErrorPtr error = loading.parser.start(lines)) {
        return error;
    }
    return fillColumns(loading, lines);
}

/// Reads a point; of a file that ended early and is read as far as it goes, a cell without a return.
/// @param done  points before it
ErrorPtr PtxReader::readCell(Loading& loading, TextLines& lines, std::uint64_t done,
                             ReadPoint& point, bool& isReturn) const {
    if (loading.cut) {
        return nullptr;
    }
    ErrorPtr error = done != 0 && !lines.next() ? cutScan(lines, done, loading.grid.cells())
                                                : loading.parser.parse(lines, point, isReturn);
    // The last line of a file that is cut may be half a line.
    if (error && source().lenient && !lines.error() && !lines.next()) {
        loading.cut = std::move(error);
        loading.cutAfter = done;
        isReturn = false;
    }
    return error;
}

/// Of a file that is read as far as it goes: tells what is missing, and what is left over.
void PtxReader::remarkOnEnd(const Loading& loading, TextLines& lines, Remarks& remarks) const {
    if (loading.cut) {
        remarks.warn(fmt::format("{}; the {} before it are read, the other cells have no return",
                                 loading.cut->message(), countText(loading.cutAfter, "point")));
    } else if (lines.next() && !parseInteger(lines.text())) {
        remarks.warn(fmt::format("{}: line {}: more lines than the scan's {}; they are not read",
                                 lines.fileName(), lines.line(),
                                 countText(loading.grid.cells(), "point")));
    }
}

/// Requires: the grid's first point is the current line.
ErrorPtr PtxReader::fillColumns(Loading& loading, TextLines& lines) const {
    const PtxHeader& grid = loading.grid;
    std::uint64_t done = 0;
    for (int col = 0; col < grid.columns; ++col) {
        for (int row = 0; row < grid.rows; ++row) {
            ReadPoint point;
            bool isReturn = false;
            if (ErrorPtr error = readCell(loading, lines, done, point, isReturn)) {
                return error;
            }
            if (isReturn) {
                loading.sink.put(row, col, point);
                loading.distances.add(loading.parser.distance());
            } else {
                loading.sink.putNull(row, col);
            }
            ++done;
            if (done % 1024 == 0 && !loading.watch.goOn(static_cast<double>(done) /
                                                        static_cast<double>(grid.cells()))) {
                return cancelled(lines.fileName());
            }
        }
    }
    return loading.watch.goOn(1.0) ? nullptr : cancelled(lines.fileName());
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
    ErrorPtr list(const std::filesystem::path& path, bool lenient,
                  std::vector<ScanListing>& scans) const override;
    std::unique_ptr<IScanReader> makeReader(const ScanSource& source) const override {
        return std::make_unique<PtxReader>(source);
    }
};

ErrorPtr PtxFormat::list(const std::filesystem::path& path, bool lenient,
                         std::vector<ScanListing>& scans) const {
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
        PtxHeader header;
        if (ErrorPtr error = readPtxHeader(lines, header, lenient)) {
            return error;
        }
        for (std::uint64_t cell = 0; cell < header.cells() && !isCut; ++cell) {
            isCut = !lines.next();
            if (isCut && (!lenient || cell == 0 || lines.error())) {
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
